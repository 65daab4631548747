// Moving the dates of several nodes, by keys and by the form.
#include "tests/mainwindow/DatesTest.h"

#include "diagram/model/Actions.h"
#include "document/UnsavedWork.h"

#include <QAction>

namespace mainwindow::testing {

namespace {

using timeline::DateOfNode;

// The first node on 14 March 2004, a second one on the 20th; both selected, and one without a date.
struct DatesByKeys : Strips {
    diagram::Node &second = AddNode(window, 6000, 3000, QStringLiteral("Second"));
    diagram::Node &plain = AddNode(window, 6000, 4500, QStringLiteral("Plain"));

    DatesByKeys() {
        timeline::AddTimelineLink(window, window.CurrentSurface(), second, QStringLiteral("20 March 2004"));
        second.SetSelected(true);
        ProcessEvents();
        document::MarkSaved(window);
    }
    QStringList Both() { return {DateOfNode(node), DateOfNode(second)}; }
    void Later() { Press(window, QStringLiteral("Ctrl+Alt+PgDown")); }
    void Earlier() { Press(window, QStringLiteral("Ctrl+Alt+PgUp")); }
    void EnterText(const QString &text) {
        EnterDate(text);
        Press(window, QStringLiteral("Ctrl+T"));
    }
};

const QStringList kBefore{QStringLiteral("14 March 2004"), QStringLiteral("20 March 2004")};

} // namespace

TEST_F(DatesByKeys, GoOnAndBackByADayOrAWeek) {
    Later();
    EXPECT_EQ(Both(), QStringList({QStringLiteral("15 March 2004"), QStringLiteral("21 March 2004")}));
    EXPECT_TRUE(document::HasUnsavedWork(window));
    Earlier();
    EXPECT_EQ(Both(), kBefore);
    Press(window, QStringLiteral("Ctrl+Alt+Shift+PgDown"));
    EXPECT_EQ(Both(), QStringList({QStringLiteral("21 March 2004"), QStringLiteral("27 March 2004")}));
    Press(window, QStringLiteral("Ctrl+Alt+Shift+PgUp"));
    EXPECT_EQ(Both(), kBefore);
}

TEST_F(DatesByKeys, TheStatusBarShowsTheNewDateOrTheFirstAndTheLast) {
    Later();
    EXPECT_EQ(Status(window), QStringLiteral("Monday, 15 March 2004 to Sunday, 21 March 2004"));
    plain.SetSelected(true);
    Later();
    EXPECT_EQ(Status(window), QStringLiteral("Tuesday, 16 March 2004 to Monday, 22 March 2004; one Node "
                                             "without a date was left alone"));
    second.SetSelected(false);
    plain.SetSelected(false);
    Later();
    EXPECT_EQ(Status(window), QStringLiteral("Wednesday, 17 March 2004"));
}

TEST_F(DatesByKeys, InARowAreOneStep) {
    Later();
    Later();
    Press(window, QStringLiteral("Ctrl+Alt+Shift+PgDown"));
    EXPECT_EQ(DateOfNode(node), QStringLiteral("23 March 2004"));
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(Both(), kBefore);
    Press(window, QStringLiteral("Ctrl+Y"));
    EXPECT_EQ(DateOfNode(node), QStringLiteral("23 March 2004"));
}

TEST_F(DatesByKeys, APauseOrAnotherSelectionBeginsAStep) {
    Later();
    desktop.clock.now = desktop.clock.now.addSecs(5);
    Later();
    second.SetSelected(false);
    Later();
    EXPECT_EQ(DateOfNode(node), QStringLiteral("17 March 2004"));
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(DateOfNode(node), QStringLiteral("16 March 2004"));
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(DateOfNode(node), QStringLiteral("15 March 2004"));
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(Both(), kBefore);
}

TEST_F(DatesByKeys, ThereAndBackAgainAreOneStepToo) {
    Later();
    Earlier();
    Later();
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(Both(), kBefore);
}

TEST_F(DatesByKeys, WithoutADateNothingIsUnsaved) {
    node.SetSelected(false);
    second.SetSelected(false);
    plain.SetSelected(true);
    const auto revision = window.CurrentSurface().Actions().Revision();
    Later();
    EXPECT_EQ(Status(window), QStringLiteral("No selected Node has a date."));
    EXPECT_EQ(window.CurrentSurface().Actions().Revision(), revision);
    EXPECT_FALSE(document::HasUnsavedWork(window));
}

TEST_F(DatesByKeys, ALinkAloneHasNoDateAndIsToldSo) {
    diagram::Link &link = node.Links().Add(plain);
    window.CurrentSurface().UnselectAll();
    link.SetSelected(true);
    ProcessEvents();
    Press(window, QStringLiteral("Ctrl+T"));
    EXPECT_EQ(Status(window), QStringLiteral("Select a Node; links have no date."));
}

TEST_F(DatesByKeys, StopAtTheYearsOfDates) {
    timeline::AddTimelineLink(window, window.CurrentSurface(), second, QStringLiteral("31 December 3099"));
    Later();
    EXPECT_EQ(Status(window), QStringLiteral("Dates go from the year 100 to 3099"));
    EXPECT_EQ(DateOfNode(node), QStringLiteral("14 March 2004"));
}

TEST_F(DatesByKeys, WithNothingSelectedTheEntriesAreOff) {
    window.CurrentSurface().UnselectAll();
    ProcessEvents();
    EXPECT_FALSE(window.findChild<QAction *>(QStringLiteral("keyDayLater"))->isEnabled());
}

TEST_F(DatesByKeys, AStepInTheFormMovesEachFromItsOwnDateAsOneStep) {
    plain.SetSelected(true);
    EnterText(QStringLiteral("+2w"));
    EXPECT_EQ(Both(), QStringList({QStringLiteral("28 March 2004"), QStringLiteral("03 April 2004")}));
    EXPECT_TRUE(DateOfNode(plain).isEmpty());
    EXPECT_EQ(Status(window), QStringLiteral("Sunday, 28 March 2004 to Saturday, 3 April 2004; one Node "
                                             "without a date was left alone"));
    EXPECT_EQ(Months().size(), 2);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(Both(), kBefore);
    EXPECT_EQ(Months().size(), 1);
}

TEST_F(DatesByKeys, ADateInTheFormIsForAll) {
    plain.SetSelected(true);
    EnterText(QStringLiteral("1 may 2004"));
    EXPECT_EQ(Both(), QStringList({QStringLiteral("01 May 2004"), QStringLiteral("01 May 2004")}));
    EXPECT_EQ(DateOfNode(plain), QStringLiteral("01 May 2004"));
}

} // namespace mainwindow::testing
