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
    // The command line behind the program's name as one text, without the toolkit's own options.
    static QString CommandLine();
};

} // namespace app
