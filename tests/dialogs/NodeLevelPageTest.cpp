// Level and groups of a node, by marks in lists that are filled when they are first seen.
#include "tests/dialogs/NodeDialogTest.h"
#include "widgets/SwatchButton.h"

#include <QListWidget>
#include <QTest>

namespace dialogs::testing {

namespace {

QStringList Marked(const QListWidget &list) {
    QStringList texts;
    for (int row = 0; row < list.count(); ++row)
        if (list.item(row)->checkState() == Qt::Checked) texts << list.item(row)->text();
    return texts;
}

} // namespace

class NodeLevels : public NodeDialogTest {
protected:
    QListWidget &Levels() { return Control<QListWidget>("lstLevels"); }
    QListWidget &Groups() { return Control<QListWidget>("lstGroups"); }
    widgets::SwatchButton &Fill() { return Control<widgets::SwatchButton>("cmdChangeFill"); }
};

TEST_F(NodeLevels, TheListsOfLevelsAndGroupsAreEmptyUntilTheirPageIsOpened) {
    Open(*node);
    EXPECT_EQ(Levels().count() + Groups().count(), 0);
    GoTo(kLevelPage);
    EXPECT_EQ(Levels().count(), 3);
    EXPECT_EQ(Groups().count(), 3);
    EXPECT_EQ(Levels().item(1)->data(Qt::UserRole).toInt(), 0x405060);
    GoTo(kSettingsPage);
    GoTo(kLevelPage);
    EXPECT_EQ(Levels().count(), 3);
}

TEST_F(NodeLevels, WithoutOpeningItsPageLevelAndGroupsStay) {
    document::SetTag(*node, document::tags::kLevel, QStringLiteral("x"));
    document::SetTag(*node, document::tags::kGroup, QStringLiteral("y"));
    node->SetFillColor(0xABCDEF);
    Open(*node);
    Click("OKButton");
    EXPECT_EQ(LevelOf(*node), QStringLiteral("x"));
    EXPECT_EQ(GroupsOf(*node), QStringLiteral("y"));
    EXPECT_EQ(node->FillColor(), 0xABCDEF);
}

TEST_F(NodeLevels, OpeningThePageGivesTheNodeTheColourOfItsLevel) {
    document::SetTag(*node, document::tags::kLevel, LevelKey(2));
    document::SetTag(*node, document::tags::kGroup, GroupKey(3) + u',' + GroupKey(2));
    node->SetFillColor(0xABCDEF);
    Open(*node);
    GoTo(kLevelPage);
    EXPECT_EQ(Marked(Levels()), QStringList(QStringLiteral("Second")));
    EXPECT_EQ(Marked(Groups()), QStringList({QStringLiteral("Green"), QStringLiteral("Blue")}));
    EXPECT_EQ(Fill().Value(), 0x405060);
    Click("OKButton");
    EXPECT_EQ(node->FillColor(), 0x405060);
    EXPECT_EQ(LevelOf(*node), LevelKey(2));
    EXPECT_EQ(GroupsOf(*node), GroupKey(2) + u',' + GroupKey(3));
}

TEST_F(NodeLevels, ALevelThatIsGoneIsShownAsTheFirstAndWritten) {
    document::SetTag(*node, document::tags::kLevel, QStringLiteral("gone"));
    Open(*node);
    GoTo(kLevelPage);
    EXPECT_EQ(Marked(Levels()), QStringList(QStringLiteral("First")));
    EXPECT_EQ(Marked(Groups()), QStringList(QStringLiteral("Red")));
    Click("OKButton");
    EXPECT_EQ(LevelOf(*node), LevelKey(1));
    EXPECT_EQ(GroupsOf(*node), GroupKey(1));
}

TEST_F(NodeLevels, AKeyWithoutAGroupMarksTheFirstBesideTheOthers) {
    document::SetTag(*node, document::tags::kGroup, GroupKey(3) + QStringLiteral(",gone"));
    Open(*node);
    GoTo(kLevelPage);
    EXPECT_EQ(Marked(Groups()), QStringList({QStringLiteral("Red"), QStringLiteral("Blue")}));
}

TEST_F(NodeLevels, MarkingALevelClearsTheOtherAndSuggestsItsColour) {
    Open(*node);
    GoTo(kLevelPage);
    Levels().item(2)->setCheckState(Qt::Checked);
    EXPECT_EQ(Marked(Levels()), QStringList(QStringLiteral("Third")));
    EXPECT_EQ(Fill().Value(), 0x708090);
    Levels().item(2)->setCheckState(Qt::Unchecked);
    EXPECT_EQ(Marked(Levels()), QStringList(QStringLiteral("Third")));
    desktop.ExpectColour(0x123456);
    Fill().click();
    Click("OKButton");
    EXPECT_EQ(Levels().currentRow(), 2);
    EXPECT_EQ(LevelOf(*node), LevelKey(3));
    EXPECT_EQ(node->FillColor(), 0x123456);
}

TEST_F(NodeLevels, AnyNumberOfGroupsCanBeMarkedNoneToo) {
    Open(*node);
    GoTo(kLevelPage);
    Groups().item(0)->setCheckState(Qt::Unchecked);
    Click("cmdApply");
    EXPECT_TRUE(GroupsOf(*node).isEmpty());
    for (int row = 0; row < 3; ++row) Groups().item(row)->setCheckState(Qt::Checked);
    Click("cmdApply");
    EXPECT_EQ(GroupsOf(*node), (QStringList{GroupKey(1), GroupKey(2), GroupKey(3)}).join(u','));
}

TEST_F(NodeLevels, AMarkIsSetWithTheSpaceKey) {
    Open(*node);
    GoTo(kLevelPage);
    Levels().setFocus();
    Levels().setCurrentRow(1);
    QTest::keyClick(&Levels(), Qt::Key_Space);
    EXPECT_EQ(Marked(Levels()), QStringList(QStringLiteral("Second")));
}

TEST_F(NodeLevels, AMapWithoutLevelsAndGroupsLeavesTheTags) {
    window.clsSettings().Levels().Clear();
    window.clsSettings().Groups().Clear();
    document::SetTag(*node, document::tags::kLevel, QStringLiteral("x"));
    Open(*node);
    GoTo(kLevelPage);
    Click("OKButton");
    EXPECT_EQ(LevelOf(*node), QStringLiteral("x"));
}

TEST_F(NodeLevels, TwoThousandGroupsAreListed) {
    for (int i = 0; i < 2000; ++i) window.clsSettings().Groups().Create(QStringLiteral("g%1").arg(i), true);
    document::SetTag(*node, document::tags::kGroup, GroupKey(2003));
    Open(*node);
    GoTo(kLevelPage);
    EXPECT_EQ(Marked(Groups()), QStringList(QStringLiteral("g1999")));
}

} // namespace dialogs::testing
