// Switches for scripts and figures, from the environment:
//   VELMORA_NO_SPLASH=1          no splash, and no wait for it
//   VELMORA_QUIT_AFTER_PAINT=1   once window and map are painted, writes "painted SECONDS" (since the
//                                process started) and "resident KIB" to the standard output and ends
//   VELMORA_SCREENSHOT=PATH      once they are painted, writes a picture of the window to PATH and ends
// With one of the last two the start-up map isn't offered.
#pragma once

#include <QString>

namespace mainwindow {
class frmMain;
}

namespace app {

struct DeveloperOptions {
    bool noSplash = false;
    bool quitAfterPaint = false;
    QString screenshot;

    bool EndsAfterPaint() const { return quitAfterPaint || !screenshot.isEmpty(); }
};

DeveloperOptions ReadDeveloperOptions();

// Does what the options say once the current view of the window has painted. To be called before the event
// loop.
void WatchFirstPaint(mainwindow::frmMain &window, const DeveloperOptions &options);

} // namespace app
