#include "app/DeveloperOptions.h"

#include "app/ProcessAge.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/frmMain.h"

#include <cstdio>
#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

namespace app {

namespace {

constexpr int kScreenshotSettles =
    400; // milliseconds, in which the window manager may still resize the window
constexpr int kExitFailure = 1;

void TakeScreenshot(mainwindow::frmMain &window, const QString &path) {
    const bool written = window.grab().save(path);
    if (!written) std::fprintf(stderr, "The screenshot could not be written to %s\n", qPrintable(path));
    QCoreApplication::exit(written ? 0 : kExitFailure);
}

// Waits for the paint event behind which everything has been drawn.
class PaintWatcher : public QObject {
public:
    PaintWatcher(mainwindow::frmMain &window, DeveloperOptions options)
        : QObject(&window), window_(window), options_(std::move(options)) {
        window.CurrentView().viewport()->installEventFilter(this);
        window.CurrentView().viewport()->update();
    }

    bool eventFilter(QObject *watched, QEvent *event) override {
        if (event->type() == QEvent::Paint) {
            watched->removeEventFilter(this);
            QTimer::singleShot(0, this, [this] { Painted(); });
        }
        return false;
    }

private:
    void Painted() {
        if (options_.quitAfterPaint) {
            std::printf("painted %.3f\nresident %ld\n", ProcessAge(), ResidentKiB());
            std::fflush(stdout);
        }
        if (options_.screenshot.isEmpty()) return QCoreApplication::exit(0);
        QTimer::singleShot(kScreenshotSettles, this,
                           [this] { TakeScreenshot(window_, options_.screenshot); });
    }

    mainwindow::frmMain &window_;
    DeveloperOptions options_;
};

} // namespace

DeveloperOptions ReadDeveloperOptions() {
    return {qEnvironmentVariableIntValue("VELMORA_NO_SPLASH") != 0,
            qEnvironmentVariableIntValue("VELMORA_QUIT_AFTER_PAINT") != 0,
            qEnvironmentVariable("VELMORA_SCREENSHOT")};
}

void WatchFirstPaint(mainwindow::frmMain &window, const DeveloperOptions &options) {
    if (options.EndsAfterPaint()) new PaintWatcher(window, options); // belongs to the window
}

} // namespace app
