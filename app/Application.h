// The application object.
#pragma once

#include <QApplication>

namespace app {

// Reports an error that a handler let through, so that no error in an event ends the process.
class Application : public QApplication {
    Q_OBJECT
public:
    Application(int &argc, char **argv);

    bool notify(QObject *receiver, QEvent *event) override;
};

// What stands behind the program's name in `arguments`, as one text: a path with blanks needs no quotes.
QString CommandLine(const QStringList &arguments);

// What a form opens above: the form that the user has open, as it is asked for from there; else what was
// asked, and where nothing was, the active window.
QWidget *FormOwner(QWidget *asked);

} // namespace app
