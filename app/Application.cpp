#include "app/Application.h"

#include "support/Error.h"

namespace app {

Application::Application(int &argc, char **argv) : QApplication(argc, argv) {
    setApplicationDisplayName(QString()); // captions are whole as they are
}

bool Application::notify(QObject *receiver, QEvent *event) {
    bool handled = true;
    const char *object = receiver->metaObject()->className(); // outlives the receiver
    support::Report(object, "Event", [&] { handled = QApplication::notify(receiver, event); });
    return handled;
}

QString CommandLine(const QStringList &arguments) { return arguments.mid(1).join(u' '); }

} // namespace app
