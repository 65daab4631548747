// The commands that add, rename, remove and reorder the slices of a window.
#pragma once

#include <functional>

namespace mainwindow {

class frmLayers;
class frmMain;

class SliceEditor {
public:
    explicit SliceEditor(frmMain &window) : window_(window) {}

    // Rebuilds the slices as `edit` leaves the form, unless that ends without an OK.
    void Edit(const std::function<void(frmLayers &)> &edit);
    // The tab `from` to the position `to`.
    void Move(int from, int to);

private:
    frmMain &window_;
};

} // namespace mainwindow
