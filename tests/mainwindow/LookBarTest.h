// What the tests of the look bar share.
#pragma once

#include "mainwindow/look/LookButton.h"
#include "mainwindow/look/StateButton.h"
#include "mainwindow/menus/Toolbar.h"
#include "mainwindow/slices/LookBar.h"
#include "tests/mainwindow/WindowTest.h"
#include "widgets/ChoicePopup.h"
#include "widgets/ColourPalette.h"

#include <QApplication>
#include <QTest>
#include <QToolButton>

namespace mainwindow::testing {

// Two nodes and the link between them; nothing is selected.
class LookBars : public WindowTest {
protected:
    LookButton &Button(const char *key) { return *window.findChild<LookButton *>(QLatin1String(key)); }
    // A button of the format toolbar.
    StateButton &Format(const char *key) {
        auto *bar = window.findChild<Toolbar *>(QStringLiteral("tlbFormat"));
        return *qobject_cast<StateButton *>(bar->widgetForAction(bar->Button(QLatin1String(key))));
    }
    QToolBar &Bar() { return *window.findChild<QToolBar *>(QStringLiteral("tlbLook")); }
    void Select(std::vector<diagram::Node *> nodes, std::vector<diagram::Link *> links = {}) {
        window.CurrentSurface().UnselectAll();
        for (diagram::Node *node : nodes) node->SetSelected(true);
        for (diagram::Link *each : links) each->SetSelected(true);
        ProcessEvents();
    }
    // Presses the button, and in its popup the button of that name.
    void Choose(const char *key, const QString &name) {
        QTest::mouseClick(&Button(key), Qt::LeftButton);
        QTest::mouseClick(Offered(name), Qt::LeftButton);
        ProcessEvents();
        Activate();
    }
    // The desktop gives the window its keys back when a popup has gone.
    void Activate() {
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    // The button of that name in the open popup.
    static QToolButton *Offered(const QString &name) {
        const auto *popup = qobject_cast<widgets::ChoicePopup *>(QApplication::activePopupWidget());
        if (popup)
            for (QToolButton *button : popup->Buttons())
                if (button->text() == name) return button;
        ADD_FAILURE() << "no choice " << qPrintable(name);
        return nullptr;
    }
    static QStringList AllOffered() {
        QStringList names;
        const auto *popup = qobject_cast<widgets::ChoicePopup *>(QApplication::activePopupWidget());
        if (popup)
            for (const QToolButton *button : popup->Buttons()) names << button->text();
        return names;
    }
    static void ClosePopup() {
        if (QWidget *popup = QApplication::activePopupWidget()) popup->close();
    }
    static QString Sky() { return QStringLiteral("sky"); }

    frmMain &window = NewWindow();
    diagram::Node &a = AddNode(window, 300, 300);
    diagram::Node &b = AddNode(window, 4000, 300);
    diagram::Link &link = a.Links().Add(b);
    const support::Colour sky = widgets::PaletteColours()[0].colour;
};

} // namespace mainwindow::testing
