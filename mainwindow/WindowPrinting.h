// What a window has to do with paper: the page setup, the preview and printing.
#pragma once

#include <memory>
#include <QString>

namespace print {
class LoadedPrint;
}

namespace mainwindow {

class frmMain;

class WindowPrinting {
public:
    explicit WindowPrinting(frmMain &window) : window_(window) {}

    void PageSetup();
    // Prints the current slice, or those of the page setup, at once, and says how many pages went where.
    void Print();
    void Preview();

    // frmPrint of this window, loaded where it isn't. A preview that is open has the same.
    std::shared_ptr<print::LoadedPrint> Loaded();

private:
    void PrintCurrentSlice(print::LoadedPrint &form);
    void ShowPageBreaks();

    frmMain &window_;
    std::shared_ptr<print::LoadedPrint> frmPrint_;
    QString file_; // of the map that the choice of slices and pages was for
};

} // namespace mainwindow
