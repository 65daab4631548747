#include "support/real/InFront.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QWindow>
#include <vector>

namespace support {

namespace {

bool IsSplash(const QWidget &window) { return window.windowType() == Qt::SplashScreen; }

class SplashesHidden {
public:
    SplashesHidden() {
        for (QWidget *window : QApplication::topLevelWidgets())
            if (window->isVisible() && IsSplash(*window)) hidden_.emplace_back(window)->hide();
    }
    ~SplashesHidden() {
        for (const QPointer<QWidget> &window : hidden_)
            if (window) window->show();
    }
    SplashesHidden(const SplashesHidden &) = delete;
    SplashesHidden &operator=(const SplashesHidden &) = delete;

private:
    std::vector<QPointer<QWidget>> hidden_;
};

} // namespace

QWidget *WindowInFront() {
    if (QWidget *active = QApplication::activeWindow(); active && !IsSplash(*active)) return active;
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window->isVisible() && (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog))
            return window;
    return nullptr;
}

int ExecInFront(QDialog &dialog) {
    const SplashesHidden splashes;
    const auto takeBack = [&dialog](const QWindow *now) {
        if (!now || now == dialog.windowHandle() || QApplication::activeModalWidget() != &dialog) return;
        dialog.raise();
        dialog.activateWindow();
    };
    QObject::connect(qApp, &QGuiApplication::focusWindowChanged, &dialog, takeBack, Qt::QueuedConnection);
    dialog.setModal(true);
    dialog.show();
    dialog.raise();
    dialog.activateWindow();
    return dialog.exec();
}

} // namespace support
