// A plain main window with menus, a tool bar and a canvas with a text: no Qt program starts faster. Prints
// the seconds from the start of the process to the first paint, and its resident memory in KiB, then ends.
#include "app/ProcessAge.h"

#include <cstdio>
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>

namespace {

class Canvas : public QWidget {
protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        painter.drawText(QPointF(20, 40), QStringLiteral("Plain window"));
        if (done_) return;
        done_ = true;
        std::printf("painted %.3f\nresident %ld\n", app::ProcessAge(), app::ResidentKiB());
        std::fflush(stdout);
        QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
    }

private:
    bool done_ = false;
};

} // namespace

int main(int argc, char **argv) {
    QApplication app(argc, argv);
    QMainWindow window;
    for (const char *title : {"File", "Edit", "View", "Layout", "Help"}) {
        QMenu *menu = window.menuBar()->addMenu(QString::fromLatin1(title));
        for (int i = 0; i < 12; ++i)
            menu->addAction(QStringLiteral("%1 %2").arg(QLatin1String(title)).arg(i));
    }
    QToolBar *bar = window.addToolBar(QStringLiteral("Tools"));
    for (int i = 0; i < 20; ++i) bar->addAction(QString::number(i));
    window.statusBar()->showMessage(QStringLiteral("Ready"));
    window.setCentralWidget(new Canvas);
    window.resize(1200, 800);
    window.show();
    return app.exec();
}
