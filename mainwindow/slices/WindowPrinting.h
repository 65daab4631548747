// Page setup, preview and printing of a window.
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
    // Opens the preview of the same, or brings the open one to the front.
    void Preview();
    // Something that is printed may have changed. An open preview and the page breaks over the surface follow
    // once nothing has changed for a quarter of a second.
    void SliceChanged();

    // frmPrint of this window without its form, loaded if it isn't; an open preview uses the same.
    std::shared_ptr<print::LoadedPrint> Loaded();

private:
    bool IsPreviewOpen() const;
    void ShowPageBreaks();
    void Follow();

    frmMain &window_;
    std::unique_ptr<QTimer> quiet_; // restarted by changes; null while no preview is open
    std::shared_ptr<print::LoadedPrint> frmPrint_;
    QString file_; // of the map for which the user chose slices and pages
};

} // namespace mainwindow
