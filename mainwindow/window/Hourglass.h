// The hourglass pointer for as long as a piece of work lasts.
#pragma once

#include "mainwindow/frmMain.h"

#include <QPointer>

namespace mainwindow {

// Gives the normal pointer back however the work ends; the window may be gone by then.
class Hourglass {
public:
    explicit Hourglass(frmMain &window) : window_(&window) {
        window.SetMousePointer(document::pointer::kHourglass);
    }
    ~Hourglass() {
        if (window_) window_->SetMousePointer(document::pointer::kNormal);
    }
    Hourglass(const Hourglass &) = delete;
    Hourglass &operator=(const Hourglass &) = delete;

private:
    QPointer<frmMain> window_;
};

} // namespace mainwindow
