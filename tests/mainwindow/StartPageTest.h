// A window with its start page, and what a user does on that.
#pragma once

#include "diagram/view/SurfaceView.h"
#include "mainwindow/start/StartCard.h"
#include "mainwindow/start/StartOffer.h"
#include "mainwindow/start/StartPage.h"
#include "settings/clsMRU.h"
#include "settings/DeliveredFiles.h"
#include "settings/GetSet.h"
#include "settings/Settings.h"
#include "templates/SaveAsTemplate.h"
#include "tests/mainwindow/WindowTest.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMouseEvent>
#include <QTest>

namespace mainwindow::testing {

class StartPages : public WindowTest {
protected:
    StartPages() {
        settings::ProductTerms terms = settings::Terms();
        terms.TEMPLATE = QStringLiteral("TEM");
        settings::SetTerms(terms);
    }
    // A window with its page.
    frmMain &Started() {
        frmMain &window = NewWindow();
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.Start().Page() != nullptr; }));
        ProcessEvents();
        return window;
    }
    // Whether the window shows the page when it is asked to.
    bool Shows(frmMain &window) {
        window.Start().Offer();
        ProcessEvents();
        return window.Start().Page();
    }
    static StartPage &PageOf(frmMain &window) { return *window.Start().Page(); }
    static QList<StartCard *> Cards(frmMain &window, const char *name) {
        return PageOf(window).findChildren<StartCard *>(QLatin1String(name));
    }
    static StartCard &Card(frmMain &window, const char *name) { return *Cards(window, name).at(0); }
    void Click(StartCard &card) {
        QTest::mouseClick(&card, Qt::LeftButton);
        ProcessEvents();
    }
    // Press, moves and release, all to the widget that is pressed, as the window system sends them. Gives the
    // widget at the place of the press in the middle of the drag.
    QWidget *DragOn(QWidget &widget, const QPoint &from, const QPoint &to) {
        const QPoint origin = widget.mapToGlobal(QPoint());
        QWidget *window = widget.window();
        const auto send = [&](QEvent::Type type, const QPoint &at, Qt::MouseButton button) {
            QMouseEvent event(type, at, origin + at, button,
                              type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
            QApplication::sendEvent(&widget, &event);
            ProcessEvents();
        };
        send(QEvent::MouseButtonPress, from, Qt::LeftButton);
        send(QEvent::MouseMove, from + (to - from) / 2, Qt::NoButton);
        QWidget *under = window->childAt(window->mapFromGlobal(origin + from));
        send(QEvent::MouseMove, to, Qt::NoButton);
        send(QEvent::MouseButtonRelease, to, Qt::LeftButton);
        return under;
    }
    // A place of the page that no card covers.
    static QPoint Beside(const QWidget &content) {
        const QPoint at(content.width() / 2, content.height() - 12);
        EXPECT_EQ(content.childAt(at), nullptr);
        return at;
    }
    // Saves a map and puts it onto the list of recent files.
    QString Recent(const QString &name, int nodes = 1) {
        const QString path = SavedMap(name, nodes);
        settings::clsMRU(desktop.registry).AddFile(path);
        return path;
    }
    void Key(Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key);
        ProcessEvents();
    }
    // Writes a template into a folder of those beside the program, and gives its path.
    QString Template(const QString &folder, const QString &name) {
        const QString path = settings::TemplatesFolder() + folder;
        EXPECT_TRUE(QDir().mkpath(path));
        diagram::Surface surface;
        surface.Nodes().Add(0, 0, 2000, 1000).SetText(name);
        frmMain maker(desktop.Get());
        QFile icon(MapFile(QStringLiteral("own.ico")));
        EXPECT_TRUE(icon.open(QIODevice::WriteOnly));
        icon.write(templates::IconFromDrawing(surface));
        icon.close();
        const QString file = QStringLiteral("%1/%2").arg(path, name);
        templates::SaveAsTemplate(maker, surface, icon.fileName(), file);
        return file;
    }
};

} // namespace mainwindow::testing
