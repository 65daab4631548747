// What the tests of dates in the window share: a selected node, and a strip with it.
#pragma once

#include "diagram/view/SurfaceView.h"
#include "document/Tags.h"
#include "tests/BritishLocale.h"
#include "tests/mainwindow/WindowTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"
#include "timeline/setup/frmDate.h"
#include "timeline/setup/frmTimelineSetup.h"
#include "timeline/TimelineNodes.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

namespace mainwindow::testing {

// The program asks for the look of the months, and the user takes what it offers.
inline void ConfirmSetupUnseen(support::testing::ScriptedDesktop &desktop) {
    desktop.ExpectMessageContaining(QStringLiteral("You have not configured your timeline Nodes yet."),
                                    support::Answer::No);
    desktop.ExpectForm<timeline::TimelineSetupArgument>([](timeline::TimelineSetupArgument &argument) {
        timeline::frmTimelineSetup form(argument, nullptr);
        form.OKButton_Click();
        return true;
    });
}

// The form of the date is shown, and the user enters that text in it.
inline void EnterDateUnseen(support::testing::ScriptedDesktop &desktop, const QString &text) {
    desktop.ExpectForm<timeline::DateFormArgument>([text](timeline::DateFormArgument &argument) {
        timeline::frmDate form(argument, nullptr);
        form.findChild<QLineEdit *>(QStringLiteral("txtDate"))->setText(text);
        form.accept();
        return form.result() == QDialog::Accepted;
    });
}

struct Dates : WindowTest {
    const tests::BritishLocale british;
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 3000, 900, QStringLiteral("Launch"));

    Dates() {
        node.SetSelected(true);
        ProcessEvents();
    }

    // What the user will enter in the form of the date.
    void EnterDate(int year, int month, int day) { EnterDate(QDate(year, month, day).toString(Qt::ISODate)); }
    void EnterDate(const QString &text) { EnterDateUnseen(desktop, text); }
    void ConfirmSetupUnseen() { testing::ConfirmSetupUnseen(desktop); }
    // The texts of the months.
    QStringList Months() {
        QStringList texts;
        for (const diagram::Node *month : timeline::LocateTimelineNodes(window.CurrentSurface()))
            texts << month->Text();
        return texts;
    }
};

struct Strips : Dates {
    // The node on 14 March 2004, the strip at the top, months 3100 wide.
    Strips() {
        EnterDate(2004, 3, 14);
        ConfirmSetupUnseen();
        Press(window, QStringLiteral("Ctrl+T"));
        diagram::Surface &surface = window.CurrentSurface();
        diagram::Node &look = *timeline::LocateTimeLineTemplateNode(surface, false);
        look.SetWidth(3100);
        look.SetHeight(450);
        document::SetTag(surface, document::tags::kTimelineAlign, QStringLiteral("2"));
        timeline::UpdateTimeLineNodes(window, surface, true);
        ProcessEvents();
    }
    QColor PixelAt(const QPointF &twips) {
        const QPixmap seen = window.CurrentView().viewport()->grab();
        const QPointF at = window.CurrentView().FromSurface(twips) * seen.devicePixelRatio();
        return QColor(seen.toImage().pixel(int(at.x()), int(at.y())));
    }
    // The user leaves the window and comes back to it on that day.
    void ComeBackOn(const QDate &day) {
        desktop.clock.now = QDateTime(day, QTime(9, 0));
        window.CurrentView().clearFocus();
        window.CurrentView().setFocus();
        ProcessEvents();
    }
    QString TipAt(const QPointF &twips) { return WindowTest::TipAt(window, twips); }
};

} // namespace mainwindow::testing
