// The application object.
#pragma once

#include <QApplication>

namespace app {

// Reports errors that leave an event handler, so that none of them ends the process.
class Application : public QApplication {
    Q_OBJECT
public:
    Application(int &argc, char **argv);

    bool notify(QObject *receiver, QEvent *event) override;
};

// The arguments behind the program's name as one text, so that a path with blanks needs no quotes.
QString CommandLine(const QStringList &arguments);

// The widget above which a form opens: the modal form that is open, as the new one is opened from there; else
// `asked`, or the active window where that is null.
QWidget *FormOwner(QWidget *asked);

} // namespace app
