#include "dialogs/PropertyForms.h"
#include "document/Filter.h"
#include "tests/document/Slices.h"
#include "tests/mainwindow/FilterTest.h"

#include <QStatusBar>
#include <QToolButton>

namespace mainwindow::testing {

namespace {

struct FilterBoxes : FilterTest {
    // The button in the status bar that tells how many nodes are hidden.
    QToolButton &Chip() { return *window.findChild<QToolButton *>(QStringLiteral("HIDDEN")); }
};

} // namespace

TEST_F(FilterBoxes, ListTheGroupsAndLevelsOfTheMap) {
    EXPECT_EQ(groups.count(), 2);
    EXPECT_EQ(groups.Row(0),
              (TickRow{false, QStringLiteral("Sales"), window.clsSettings().Groups().Item(1).Key}));
    EXPECT_EQ(groups.Row(1),
              (TickRow{true, QStringLiteral("Finance"), window.clsSettings().Groups().Item(2).Key}));
    EXPECT_EQ(groups.Text(), QStringLiteral("Finance"));
    EXPECT_EQ(levels.Text(), QStringLiteral("2"));
}

TEST_F(FilterBoxes, SeveralRowsAreTickedWithoutOpeningTheListAgain) {
    window.clsSettings().Groups().Create(QStringLiteral("Staff"), false);
    window.LoadCombos();
    Open(groups);
    ClickRow(groups, 0);
    ClickRow(groups, 2);
    ClickRow(groups, 1);
    EXPECT_TRUE(groups.view()->isVisible());
    EXPECT_EQ(groups.Text(), QStringLiteral("Sales,Staff"));
    EXPECT_TRUE(window.clsSettings().Groups().Item(3).Selected);
    EXPECT_FALSE(window.clsSettings().Groups().Item(2).Selected);
}

TEST_F(FilterBoxes, LettingTheButtonGoThatOpenedTheListTicksNothing) {
    Open(groups);
    QAbstractItemView *list = groups.view();
    const QPoint row = list->visualRect(list->model()->index(0, 0)).center();
    QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, row);
    EXPECT_EQ(groups.Text(), QStringLiteral("Finance"));
    QTest::mousePress(list->viewport(), Qt::LeftButton, {}, row);
    QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, row);
    EXPECT_EQ(groups.Text(), QStringLiteral("Sales,Finance"));
}

TEST_F(FilterBoxes, TheListLeavesWhatIsTickedInSight) {
    Open(groups);
    const int bottom = groups.mapToGlobal(groups.rect().bottomLeft()).y();
    EXPECT_GE(groups.view()->mapToGlobal(QPoint(0, 0)).y(), bottom);
}

TEST_F(FilterBoxes, WorkByKeyboard) {
    groups.setFocus();
    QTest::keyClick(&groups, Qt::Key_Down);
    ProcessEvents();
    ASSERT_TRUE(groups.view()->isVisible());
    groups.view()->setCurrentIndex(groups.model()->index(0, 0));
    QTest::keyClick(groups.view(), Qt::Key_Space);
    EXPECT_EQ(groups.Text(), QStringLiteral("Sales,Finance"));
    QTest::keyClick(groups.view(), Qt::Key_Down);
    QTest::keyClick(groups.view(), Qt::Key_Space);
    EXPECT_EQ(groups.Text(), QStringLiteral("Sales"));
}

TEST_F(FilterBoxes, TheFilterIsAppliedToAllSlicesWhenTheListCloses) {
    diagram::Node &sales = Tagged(1, 2), &finance = Tagged(2, 2);
    document::testing::AddSlice(window);
    diagram::Node &other = window.AddFlow1()[1].Nodes().Add(0, 0, 1500, 900);
    other.SetTag(sales.Tag());
    window.clsSettings().Dirty = false;
    Open(groups);
    EXPECT_FALSE(sales.Hidden());
    Close(groups);
    EXPECT_TRUE(sales.Hidden());
    EXPECT_TRUE(other.Hidden());
    EXPECT_FALSE(finance.Hidden());
    EXPECT_FALSE(window.clsSettings().Dirty);
    EXPECT_FALSE(window.CurrentSurface().CanUndo());
    Open(groups);
    ClickRow(groups, 0);
    Close(groups);
    EXPECT_FALSE(sales.Hidden());
}

TEST_F(FilterBoxes, TheMonthsOfTheCurrentSliceAreThenShownAsTheMenuSays) {
    std::vector<diagram::Node *> months;
    document::testing::AddSlice(window);
    for (const int slice : {0, 1}) {
        months.push_back(&window.AddFlow1()[slice].Nodes().Add(300, 9000, 1500, 900));
        months.back()->SetText(QStringLiteral("May 2024"));
        months.back()->SetMarked(true);
        months.back()->SetSelectable(false);
    }
    for (const bool shown : {false, true, false}) {
        for (diagram::Node *month : months) month->SetHidden(shown);
        window.SetMenuValue(QStringLiteral("mnuViewTimeline"), shown);
        window.ssDBGroups_CloseUp();
        EXPECT_EQ(months[0]->Hidden(), !shown);
        EXPECT_EQ(months[1]->Hidden(), shown) << "the other slice has a switch of its own";
    }
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(FilterBoxes, TheLinksOfADayAreThenShownAsTheMenuSays) {
    for (const char *text : {"May 2024", "17 May 2024"}) {
        diagram::Node &node = AddNode(window, 300, 9000, QLatin1String(text));
        node.SetMarked(true);
        node.SetSelectable(false);
    }
    diagram::Node &day = window.CurrentSurface().Nodes().Item(2);
    day.SetHidden(true);
    document::SetTag(day, document::tags::kTheDate, QStringLiteral("17 May 2024"));
    diagram::Node &dated = Tagged(2, 2), &hidden = Tagged(1, 2);
    diagram::Link &link = dated.Links().Add(day), &other = hidden.Links().Add(day);
    for (const bool shown : {false, true}) {
        window.SetMenuValue(QStringLiteral("mnuViewTimeline"), shown);
        window.ssDBGroups_CloseUp();
        EXPECT_EQ(link.Hidden(), !shown);
        EXPECT_TRUE(other.Hidden()) << "its node is hidden";
    }
}

TEST_F(FilterBoxes, WhatIsHiddenIsNotSelectedAnyMore) {
    diagram::Node &sales = Tagged(1, 2), &finance = Tagged(2, 2);
    sales.SetSelected(true);
    finance.SetSelected(true);
    window.ssDBGroups_CloseUp();
    EXPECT_FALSE(sales.Selected());
    EXPECT_TRUE(finance.Selected());
}

TEST_F(FilterBoxes, ClosingTheLevelsAppliesTheFilterToo) {
    diagram::Node &first = Tagged(2, 1);
    Open(levels);
    Close(levels);
    EXPECT_TRUE(first.Hidden());
}

TEST_F(FilterBoxes, AGroupRenamedStillFilters) {
    diagram::Node &node = Tagged(2, 2);
    window.clsSettings().Groups().Item(2).GroupName = QStringLiteral("Money, mostly 'hers'");
    window.LoadGroupCombo();
    window.ssDBGroups_CloseUp();
    EXPECT_TRUE(node.Hidden()) << "a name with a comma matches no group";
    window.clsSettings().Groups().Item(2).GroupName = QStringLiteral("Money 'hers'");
    window.LoadGroupCombo();
    window.ssDBGroups_CloseUp();
    EXPECT_FALSE(node.Hidden());
}

TEST_F(FilterBoxes, GroupsOfOneNameTurnTheTickRoundOneAfterTheOther) {
    window.clsSettings().Groups().Create(QStringLiteral("Sales"), false);
    window.LoadCombos();
    window.ssDBGroups_Click(0);
    EXPECT_TRUE(window.clsSettings().Groups().Item(1).Selected);
    EXPECT_FALSE(window.clsSettings().Groups().Item(3).Selected);
}

TEST_F(FilterBoxes, TheStatusBarSaysHowManyNodesAreHidden) {
    EXPECT_TRUE(Chip().isHidden());
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.findChild<QWidget *>("prg1")->isVisible(); }));
    Tagged(1, 2);
    window.ssDBGroups_CloseUp();
    ProcessEvents();
    EXPECT_EQ(Chip().text(), QStringLiteral("1 Node hidden"));
    EXPECT_TRUE(Chip().isVisible());
    const QPoint middle = Chip().rect().center();
    QWidget *status = window.statusBar();
    ASSERT_EQ(status->childAt(Chip().mapTo(status, middle)), &Chip()) << "something covers it";
    QTest::mouseClick(&Chip(), Qt::LeftButton);
    ProcessEvents();
    EXPECT_TRUE(groups.view()->isVisible());
    ClickRow(groups, 0);
    Close(groups);
    ProcessEvents();
    EXPECT_TRUE(Chip().isHidden());
}

TEST_F(FilterBoxes, LevelSetupRepaintsTheNodesThatHaveTheFormerColourOfTheirLevelInOneStep) {
    desktop.ExpectForm<dialogs::LevelsFormArgument>([](dialogs::LevelsFormArgument &argument) {
        argument.oLevels.Item(2).Color = 0x123456;
        return true;
    });
    diagram::Node &node = Tagged(2, 2), &second = Tagged(2, 2), &byHand = Tagged(2, 2);
    diagram::Node &otherLevel = Tagged(2, 1), &plain = AddNode(window, 0, 0);
    for (diagram::Node *each : {&node, &second, &otherLevel, &plain}) each->SetFillColor(0x222222);
    byHand.SetFillColor(0xABCDEF);
    window.clsSettings().Dirty = false;
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewLevels"));
    EXPECT_EQ(node.FillColor(), 0x123456);
    EXPECT_EQ(second.FillColor(), 0x123456);
    EXPECT_EQ(byHand.FillColor(), 0xABCDEF) << "chosen by hand";
    EXPECT_EQ(otherLevel.FillColor(), 0x222222) << "its level's colour is as before";
    EXPECT_EQ(plain.FillColor(), 0x222222);
    EXPECT_TRUE(window.clsSettings().Dirty);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(node.FillColor(), 0x222222);
    EXPECT_EQ(second.FillColor(), 0x222222);
    EXPECT_FALSE(window.CurrentSurface().CanUndo());
}

TEST_F(FilterBoxes, LevelSetupThatWasCancelledOrChangedNoColourRepaintsNothing) {
    diagram::Node &node = Tagged(2, 2);
    node.SetFillColor(0xABCDEF);
    window.clsSettings().Dirty = false;
    for (const bool ok : {true, false}) {
        desktop.ExpectForm<dialogs::LevelsFormArgument>([ok](dialogs::LevelsFormArgument &) { return ok; });
        window.SmartMenuXP1_Click(QStringLiteral("mnuViewLevels"));
        EXPECT_EQ(node.FillColor(), 0xABCDEF);
        EXPECT_FALSE(window.CurrentSurface().CanUndo());
        EXPECT_FALSE(window.clsSettings().Dirty);
    }
}

// A cancelled form has changed nothing, yet list and filter are brought up to date from the levels.
TEST_F(FilterBoxes, LevelSetupThatWasCancelledFillsTheListAndAppliesTheFilterToo) {
    diagram::Node &node = Tagged(2, 2);
    desktop.ExpectForm<dialogs::LevelsFormArgument>([](dialogs::LevelsFormArgument &argument) {
        argument.oLevels.Item(2).Selected = false;
        return false;
    });
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewLevels"));
    EXPECT_FALSE(levels.Row(1).ticked);
    EXPECT_TRUE(node.Hidden());
}

TEST_F(FilterBoxes, GroupSetupFillsTheListAndAppliesTheFilterOnOkAndCancelAlike) {
    diagram::Node &node = Tagged(2, 2);
    for (const bool ok : {true, false}) {
        desktop.ExpectForm<dialogs::GroupsFormArgument>([ok](dialogs::GroupsFormArgument &argument) {
            argument.oGroups.Item(2).GroupName = ok ? QStringLiteral("Money") : QStringLiteral("Cash");
            argument.oGroups.Item(2).Selected = !ok;
            return ok;
        });
        window.SmartMenuXP1_Click(QStringLiteral("mnuViewGroups"));
        EXPECT_EQ(groups.Row(1).name, ok ? QStringLiteral("Money") : QStringLiteral("Cash"));
        EXPECT_EQ(node.Hidden(), ok);
    }
}

TEST_F(FilterBoxes, WhatTheFormForLevelsHasToSayStandsInTheStatusBar) {
    desktop.ExpectForm<dialogs::LevelsFormArgument>([](dialogs::LevelsFormArgument &argument) {
        argument.status = QStringLiteral("It stays.");
        return true;
    });
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewLevels"));
    EXPECT_EQ(Status(window), QStringLiteral("It stays."));
    desktop.ExpectForm<dialogs::LevelsFormArgument>();
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewLevels"));
    EXPECT_EQ(Status(window), QStringLiteral("It stays.")) << "without news nothing is taken away";
}

} // namespace mainwindow::testing
