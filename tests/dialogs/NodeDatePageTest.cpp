// The date of a node.
#include "tests/dialogs/NodeDialogTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Span.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>

namespace dialogs::testing {

class NodeDates : public NodeDialogTest {
protected:
    QLineEdit &DateText() { return *Control<QWidget>("SSDateCombo1").findChild<QLineEdit *>(); }
    void Type(const QString &date) {
        DateText().selectAll();
        QTest::keyClicks(&DateText(), date);
    }
};

TEST_F(NodeDates, ShowsTheDateOfTheNode) {
    Date(*node, QStringLiteral("14 March 2004"));
    Open(*node);
    EXPECT_TRUE(Control<QCheckBox>("chkDate").isChecked());
    EXPECT_EQ(DateText().text(), QStringLiteral("14 Mar 2004 00:00:00"));
    EXPECT_TRUE(Control<QWidget>("SSDateCombo1").isEnabled());
}

TEST_F(NodeDates, WithoutADateTodayIsOffered) {
    Open(*node);
    GoTo(kDatePage);
    EXPECT_FALSE(Control<QCheckBox>("chkDate").isChecked());
    EXPECT_FALSE(Control<QWidget>("SSDateCombo1").isEnabled());
    EXPECT_EQ(DateText().text(), QStringLiteral("17 May 2024 00:00:00"));
    Control<QCheckBox>("chkDate").click();
    EXPECT_TRUE(Control<QWidget>("SSDateCombo1").isEnabled());
    Click("OKButton");
    EXPECT_EQ(timeline::DateOfNode(*node), QStringLiteral("17 May 2024"));
}

TEST_F(NodeDates, ADateIsTypedInAnyForm) {
    for (const char *typed : {"2 January 2005", "2/1/2005", "2005-01-02", "2 Jan 2005 13:45:00"}) {
        timeline::RemoveTimelineLinks(*node);
        Open(*node);
        GoTo(kDatePage);
        Control<QCheckBox>("chkDate").setChecked(true);
        Type(QLatin1String(typed));
        Click("OKButton");
        EXPECT_EQ(timeline::DateOfNode(*node), QStringLiteral("02 January 2005")) << typed;
    }
}

TEST_F(NodeDates, AnEndIsShownAndTypedInTheSameBox) {
    Date(*node, QStringLiteral("14 March 2004"));
    timeline::SetEndOfNode(*node, QDate(2004, 4, 2));
    Open(*node);
    EXPECT_EQ(DateText().text(), QStringLiteral("14 March 2004 - 02 April 2004"));
    Click("OKButton");
    EXPECT_EQ(timeline::SpanOfNode(*node), (timeline::Span{QDate(2004, 3, 14), QDate(2004, 4, 2)}));
    Open(*node);
    GoTo(kDatePage);
    Type(QStringLiteral("14/3/2004 for 3d"));
    Click("OKButton");
    EXPECT_EQ(timeline::SpanOfNode(*node), (timeline::Span{QDate(2004, 3, 14), QDate(2004, 3, 16)}));
    Open(*node);
    GoTo(kDatePage);
    Type(QStringLiteral("15/3/2004"));
    Click("OKButton");
    EXPECT_EQ(timeline::SpanOfNode(*node), timeline::Span{QDate(2004, 3, 15)});
}

TEST_F(NodeDates, WhatIsUnderstoodIsShownBesideTheBoxWhileItIsTyped) {
    Open(*node);
    GoTo(kDatePage);
    auto &meaning = Control<QLabel>("lblMeaning");
    EXPECT_EQ(meaning.text(), QStringLiteral("Friday, 17 May 2024"));
    EXPECT_FALSE(meaning.isEnabled());
    Control<QCheckBox>("chkDate").setChecked(true);
    Type(QStringLiteral("next monday"));
    EXPECT_EQ(meaning.text(), QStringLiteral("Monday, 20 May 2024"));
    EXPECT_EQ(DateText().accessibleDescription(), meaning.text());
    Type(QStringLiteral("soon"));
    EXPECT_EQ(meaning.text(), QStringLiteral("This is not understood as a date"));
    Type(QStringLiteral("w23"));
    Click("OKButton");
    EXPECT_EQ(timeline::DateOfNode(*node), QStringLiteral("03 June 2024"));
}

TEST_F(NodeDates, WhatIsNoDateIsRefused) {
    for (const char *typed : {"soon", "31 February 2004", "1/1/99999", "1 January 3100"}) {
        Open(*node);
        GoTo(kDatePage);
        Control<QCheckBox>("chkDate").setChecked(true);
        Type(QLatin1String(typed));
        GoTo(0);
        desktop.ExpectMessage(QStringLiteral("\"%1\" is no date.").arg(QLatin1String(typed)));
        Click("OKButton");
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(form->SSIndexTab1()->currentIndex(), kDatePage);
        EXPECT_FALSE(window.clsSettings().Dirty);
    }
}

TEST_F(NodeDates, ADateThatCannotBeReadIsShownAndStays) {
    Date(*node, QStringLiteral("14 March 2004"));
    node->Links().Item(1).Destination().SetText(QStringLiteral("some day"));
    Open(*node);
    EXPECT_EQ(DateText().text(), QStringLiteral("some day"));
    Click("OKButton");
    EXPECT_EQ(DayTextOf(*node), QStringLiteral("some day"));
}

TEST_F(NodeDates, ClearingTheDateTakesItAway) {
    Date(*node, QStringLiteral("14 March 2004"));
    Open(*node);
    GoTo(kDatePage);
    Control<QCheckBox>("chkDate").click();
    Click("OKButton");
    EXPECT_TRUE(timeline::DateOfNode(*node).isEmpty());
}

TEST_F(NodeDates, OfSeveralNodesTheDatePageIsOffAndTheDateGoes) {
    Date(*node, QStringLiteral("14 March 2004"));
    diagram::Node &other = AddNode();
    Date(other, QStringLiteral("15 March 2004"));
    other.SetSelected(true);
    Open(*node);
    EXPECT_FALSE(form->SSIndexTab1()->isTabEnabled(kDatePage));
    EXPECT_FALSE(Control<QCheckBox>("chkDate").isChecked());
    Click("OKButton");
    EXPECT_TRUE(timeline::DateOfNode(*node).isEmpty());
    EXPECT_EQ(timeline::DateOfNode(other), QStringLiteral("15 March 2004"));
}

TEST_F(NodeDates, ADateThatIsAppliedTwiceIsTakenBackByTwoSteps) {
    node->SetKey(QStringLiteral("key"));
    Open(*node);
    GoTo(kDatePage);
    Control<QCheckBox>("chkDate").click();
    Click("cmdApply");
    Click("OKButton");
    flow.Undo();
    EXPECT_EQ(timeline::DateOfNode(*node), QStringLiteral("17 May 2024"));
    flow.Undo();
    EXPECT_TRUE(timeline::DateOfNode(*node).isEmpty());
    EXPECT_FALSE(flow.CanUndo());
}

TEST_F(NodeDates, ADateIsChosenInTheCalendar) {
    Open(*node);
    GoTo(kDatePage);
    Control<QCheckBox>("chkDate").click();
    Control<QWidget>("SSDateCombo1").findChild<QToolButton *>()->click();
    auto &calendar = Control<QCalendarWidget>("calDate");
    EXPECT_EQ(calendar.selectedDate(), QDate(2024, 5, 17));
    Q_EMIT calendar.activated(QDate(2025, 12, 24));
    Settle();
    EXPECT_EQ(DateText().text(), QStringLiteral("24 Dec 2025 00:00:00"));
    Click("OKButton");
    EXPECT_EQ(timeline::DateOfNode(*node), QStringLiteral("24 December 2025"));
}

TEST_F(NodeDates, TheArrowKeyWithAltOpensTheCalendar) {
    Open(*node);
    GoTo(kDatePage);
    Control<QCheckBox>("chkDate").click();
    QTest::keyClick(&DateText(), Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(Control<QCalendarWidget>("calDate").isVisible());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    EXPECT_TRUE(form->isVisible());
}

} // namespace dialogs::testing
