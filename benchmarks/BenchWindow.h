// A window with an empty map, for figures that are taken in one. Boxes are answered yes and dialogs cancelled
// at once.
#pragma once

#include "mainwindow/frmMain.h"

#include <memory>
#include <QString>

namespace bench {

class BenchDesktop;

class BenchWindow {
public:
    // 1280 x 800 pixels for the surface, shown and at rest.
    BenchWindow();
    ~BenchWindow();
    BenchWindow(const BenchWindow &) = delete;
    BenchWindow &operator=(const BenchWindow &) = delete;

    mainwindow::frmMain &Form() { return *form_; }

private:
    std::unique_ptr<BenchDesktop> desktop_;
    QString programPath_;
    mainwindow::frmMain *form_;
};

// 1280 x 800 pixels for the surface of a window that is shown; leaves it at rest, with the keyboard.
void GiveRoom(mainwindow::frmMain &form);

// Closes the window as if nothing in it were worth a question.
void CloseUnsaved(mainwindow::frmMain &form);

} // namespace bench
