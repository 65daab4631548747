// What a window shows while it loads or saves.
#pragma once

#include "document/MapWindow.h"

#include <exception>

namespace document {

// The hourglass pointer for as long as the object lives. When an error ends its life, the status and progress
// are emptied too.
class BusyWindow {
public:
    explicit BusyWindow(MapWindow &window) : window_(window) { window_.SetMousePointer(pointer::kHourglass); }
    ~BusyWindow() {
        window_.SetMousePointer(pointer::kNormal);
        if (std::uncaught_exceptions() <= exceptions_) return;
        window_.DoStatus(QString());
        window_.SetProgress(0);
    }
    BusyWindow(const BusyWindow &) = delete;
    BusyWindow &operator=(const BusyWindow &) = delete;

private:
    MapWindow &window_;
    int exceptions_ = std::uncaught_exceptions();
};

// The share of `total` on the progress bar; the bar is told only when the percentage changes.
class Progress {
public:
    Progress(MapWindow &window, std::size_t total) : window_(window), total_(total) {}
    void Show(std::size_t done) {
        constexpr std::size_t kWhole = 100;
        const int percent = total_ == 0 ? 0 : static_cast<int>(done * kWhole / total_);
        if (percent == shown_) return;
        shown_ = percent;
        window_.SetProgress(percent);
    }

private:
    MapWindow &window_;
    std::size_t total_;
    int shown_ = -1;
};

} // namespace document
