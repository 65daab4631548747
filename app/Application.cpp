#include "app/Application.h"

#include "support/Error.h"

namespace app {

Application::Application(int &argc, char **argv) : QApplication(argc, argv) {
    setApplicationDisplayName(QString()); // captions are whole as they are
}

bool Application::notify(QObject *receiver, QEvent *event) {
    bool handled = true;
    const QByteArray object = receiver->metaObject()->className();
    support::Report(object.constData(), "Event", [&] { handled = QApplication::notify(receiver, event); });
    return handled;
}

QString Application::CommandLine() { return arguments().mid(1).join(u' '); }

} // namespace app
