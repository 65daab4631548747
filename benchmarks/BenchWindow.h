// A window with an empty map, for figures that are taken in one. Boxes are answered by yes, and dialogs are
// cancelled at once.
#pragma once

#include "mainwindow/frmMain.h"

#include <memory>
#include <QString>

namespace bench {

class BenchDesktop;

class BenchWindow {
public:
    // Shown and at rest, with 1280 x 800 pixels for the surface, which has the keyboard.
    BenchWindow();
    // Closes it, and all others, as if nothing in them were worth a question.
    ~BenchWindow();
    BenchWindow(const BenchWindow &) = delete;
    BenchWindow &operator=(const BenchWindow &) = delete;

    mainwindow::frmMain &Form() { return *form_; }

private:
    std::unique_ptr<BenchDesktop> desktop_;
    QString programPath_;
    mainwindow::frmMain *form_;
};

} // namespace bench
