// Holds back the painting of a window while it is rebuilt.
#pragma once

#include <QPointer>
#include <QWidget>

namespace mainwindow {

class clsLockWindowUpdate {
public:
    clsLockWindowUpdate() = default;
    explicit clsLockWindowUpdate(QWidget &window) { Sethwnd(&window); }
    ~clsLockWindowUpdate() { Sethwnd(nullptr); }
    clsLockWindowUpdate(const clsLockWindowUpdate &) = delete;
    clsLockWindowUpdate &operator=(const clsLockWindowUpdate &) = delete;

    QWidget *hwnd() const { return window_; }
    // Locks that window; the one locked before, or null, is painted again.
    void Sethwnd(QWidget *window) {
        if (window_) window_->setUpdatesEnabled(true);
        window_ = window;
        if (window_) window_->setUpdatesEnabled(false);
    }

private:
    QPointer<QWidget> window_;
};

} // namespace mainwindow
