#include "tests/dialogs/NamesTest.h"

#include <gmock/gmock.h>
#include <QGroupBox>
#include <QHeaderView>

using ::testing::ElementsAre;

namespace dialogs::testing {

namespace {

const QString kCommas =
    QStringLiteral("Commas (,) are not allowed.\r\rWould you like to use this text with commas?");

class GroupsForm : public NamesTest<frmGroups, GroupsFormArgument> {
protected:
    GroupsFormArgument &argument() override { return argument_; }
    document::cGroups &Groups() { return window->clsSettings().Groups(); }

private:
    GroupsFormArgument argument_{*window, Groups()};
};

} // namespace

TEST_F(GroupsForm, ShowsTheGroupsWithoutColours) {
    Open();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Groups"));
    EXPECT_EQ(form->findChild<QGroupBox *>()->title(), QStringLiteral("&Groups"));
    EXPECT_EQ(List().headerItem()->text(0), QStringLiteral("Group"));
    EXPECT_THAT(Names(), ElementsAre("Sales", "O'Brien"));
    EXPECT_EQ(Row(0).checkState(0), Qt::Checked);
    EXPECT_EQ(Row(1).checkState(0), Qt::Unchecked);
    EXPECT_TRUE(Row(0).icon(0).isNull());
    EXPECT_EQ(form->findChild<QPushButton *>(QStringLiteral("cmdColor")), nullptr);
}

TEST_F(GroupsForm, OkWritesNamesAndTicksAndKeepsKeys) {
    const QString key = Groups().Item(1).Key;
    Open();
    Rename(0, QStringLiteral("Market"));
    Row(0).setCheckState(0, Qt::Unchecked);
    Press("cmdNew");
    Type(QStringLiteral("Staff"));
    Press("cmdOK");
    ASSERT_EQ(Groups().count(), 3);
    EXPECT_EQ(Groups().Item(1).Key, key);
    EXPECT_EQ(Groups().Item(1).GroupName, QStringLiteral("Market"));
    EXPECT_FALSE(Groups().Item(1).Selected);
    EXPECT_EQ(Groups().Item(3).GroupName, QStringLiteral("Staff"));
    EXPECT_TRUE(Groups().Item(3).Selected);
}

TEST_F(GroupsForm, ACommaAnsweredYesIsTakenOut) {
    Open();
    desktop.ExpectMessage(kCommas, support::Answer::Yes);
    Rename(0, QStringLiteral("a,b,,c"));
    EXPECT_EQ(Row(0).text(0), QStringLiteral("abc"));
    EXPECT_EQ(desktop.Messages().back().buttons, support::Buttons::YesNo);
    EXPECT_EQ(desktop.Messages().back().icon, support::Icon::Question);
}

TEST_F(GroupsForm, ACommaAnsweredNoLeavesTheFormerName) {
    Open();
    desktop.ExpectMessage(kCommas, support::Answer::No);
    Rename(0, QStringLiteral("a,b"));
    EXPECT_EQ(Row(0).text(0), QStringLiteral("Sales"));
    EXPECT_EQ(Editor(), nullptr);
}

TEST_F(GroupsForm, ANameOfCommasAloneIsEmptyThenAndRefused) {
    Open();
    desktop.ExpectMessage(kCommas, support::Answer::Yes);
    Rename(0, QStringLiteral(",,"));
    Press("cmdOK");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(List().Message(), QStringLiteral("Please give it a name."));
}

TEST_F(GroupsForm, AClickOnTheColumnChangesNothing) {
    Open();
    QTest::mouseClick(List().header()->viewport(), Qt::LeftButton, {}, QPoint(20, 5));
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Groups"));
    EXPECT_THAT(Names(), ElementsAre("Sales", "O'Brien"));
}

TEST_F(GroupsForm, DefaultGivesTheGroupsToNewMaps) {
    Open();
    Press("cmdNew");
    Type(QStringLiteral("it's new"));
    desktop.ExpectMessage(QStringLiteral("This will affect all new Maps!\r\rContinue?"),
                          support::Answer::Yes);
    Press("cmdDefault");
    EXPECT_EQ(Groups().count(), 2);
    document::cGroups groups;
    groups.LoadDefaults();
    ASSERT_EQ(groups.count(), 3);
    EXPECT_EQ(groups.Item(2).GroupName, QStringLiteral("O'Brien"));
    EXPECT_EQ(groups.Item(3).GroupName, QStringLiteral("it's new"));
    EXPECT_EQ(NewWindow()->clsSettings().Levels().count(), 4) << "the levels stay";
}

TEST_F(GroupsForm, DeletedThenOkThenReopenedTheRowIsBack) {
    Open();
    Press("cmdDelete");
    Press("cmdOK");
    EXPECT_EQ(argument().status, QStringLiteral("“Sales” stays in the Map and is listed again next time."));
    Open();
    EXPECT_THAT(Names(), ElementsAre("Sales", "O'Brien"));
}

TEST_F(GroupsForm, TwoThousandGroupsKeepTheirOrder) {
    QStringList expected{QStringLiteral("Sales"), QStringLiteral("O'Brien")};
    for (int at = 0; at < 2000; ++at) {
        expected << QStringLiteral("Group %1").arg(at * 7919 % 2000);
        Groups().Create(expected.last(), true);
    }
    Open();
    Rename(1000, QStringLiteral("Renamed"));
    expected[1000] = QStringLiteral("Renamed");
    Press("cmdOK");
    QStringList names;
    for (const document::cGroup &group : Groups()) names << group.GroupName;
    EXPECT_EQ(names, expected);
}

} // namespace dialogs::testing
