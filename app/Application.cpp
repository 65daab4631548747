#include "app/Application.h"

#include "support/Error.h"
#include "widgets/ProgramStyle.h"

namespace app {

Application::Application(int &argc, char **argv) : QApplication(argc, argv) {
    setApplicationDisplayName(QString()); // captions are whole as they are
    setStyle(new widgets::ProgramStyle);
}

bool Application::notify(QObject *receiver, QEvent *event) {
    bool handled = true;
    const char *object = receiver->metaObject()->className(); // outlives the receiver
    support::Report(object, "Event", [&] { handled = QApplication::notify(receiver, event); });
    return handled;
}

QString CommandLine(const QStringList &arguments) { return arguments.mid(1).join(u' '); }

QWidget *FormOwner(QWidget *asked) {
    if (QWidget *form = QApplication::activeModalWidget()) return form;
    return asked ? asked : QApplication::activeWindow();
}

} // namespace app
