// What a window has to do with paper: the page setup, the preview and printing.
#pragma once

#include <memory>
#include <QString>

class QTimer;
namespace print {
class LoadedPrint;
}

namespace mainwindow {

class frmMain;

class WindowPrinting {
public:
    explicit WindowPrinting(frmMain &window);
    ~WindowPrinting();

    void PageSetup();
    // Prints the current slice, or those of the page setup, at once, and says how many pages went where.
    void Print();
    void Preview();
    // Something that is printed may have changed: an open preview and the page breaks over the surface follow
    // once nothing has changed for a moment.
    void SliceChanged();

    // frmPrint of this window, loaded where it isn't. A preview that is open has the same.
    std::shared_ptr<print::LoadedPrint> Loaded();

private:
    void PrintCurrentSlice(print::LoadedPrint &form);
    bool IsPreviewOpen() const;
    void ShowPageBreaks();
    void Follow();

    frmMain &window_;
    std::unique_ptr<QTimer> quiet_; // while a preview is open
    std::shared_ptr<print::LoadedPrint> frmPrint_;
    QString file_; // of the map that the choice of slices and pages was for
};

} // namespace mainwindow
