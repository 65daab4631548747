// Modal dialogs, driven by a test.
#pragma once

#include <functional>
#include <QApplication>
#include <QTimer>

// Runs `action` on the modal dialog of a class as soon as it is up.
template <typename Dialog>
void OnceShown(std::function<void(Dialog &)> action) {
    auto *timer = new QTimer(qApp);
    timer->setInterval(1);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, action] {
        auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
        if (!dialog) return;
        timer->deleteLater();
        timer->stop();
        action(*dialog);
    });
    timer->start();
}
