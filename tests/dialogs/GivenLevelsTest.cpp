// What becomes of nodes whose level is deleted.
#include "tests/dialogs/LevelsFormTest.h"

#include <QComboBox>
#include <QLabel>

namespace dialogs::testing {

using ::testing::ElementsAre;

TEST_F(LevelsForm, ADeletedLevelWithoutNodesOffersNothing) {
    NodeOfLevel(1);
    Open();
    Select(1);
    Press("cmdDelete");
    EXPECT_FALSE(form->cboGive()->isVisible());
}

TEST_F(LevelsForm, DeletingALevelThatNodesHaveOffersThemAnother) {
    NodeOfLevel(2), NodeOfLevel(2, 1);
    Open();
    Select(1);
    Press("cmdDelete");
    EXPECT_TRUE(form->cboGive()->isVisible());
    EXPECT_EQ(Find<QLabel>("lblGive").text(), QStringLiteral("Nodes of the deleted level: 2. &Give them:"));
    QStringList entries;
    for (int at = 0; at < form->cboGive()->count(); ++at) entries << form->cboGive()->itemText(at);
    EXPECT_THAT(entries, ElementsAre("Their level, as before", "1", "12", "12 Important"));
}

TEST_F(LevelsForm, NodesOfADeletedLevelKeepItUnlessTheUserSaysOtherwise) {
    diagram::Node &node = NodeOfLevel(2);
    Open();
    Select(1);
    Press("cmdDelete");
    Press("cmdOK");
    EXPECT_EQ(LevelOf(node), QStringLiteral("2"));
    EXPECT_FALSE(window->clsSettings().Dirty);
}

TEST_F(LevelsForm, GivingAnotherLevelIsOneStepOfUndoOnEachSlice) {
    diagram::Node &first = NodeOfLevel(2), &second = NodeOfLevel(2), &other = NodeOfLevel(1);
    diagram::Node &elsewhere = NodeOfLevel(2, 1);
    const support::Colour before = first.FillColor();
    Open();
    Select(1);
    Press("cmdDelete");
    form->cboGive()->setCurrentText(QStringLiteral("12"));
    Press("cmdOK");
    for (const diagram::Node *node : {&first, &second, &elsewhere}) {
        EXPECT_EQ(LevelOf(*node), QStringLiteral("12"));
        EXPECT_EQ(node->FillColor(), 0x333333);
    }
    EXPECT_EQ(LevelOf(other), QStringLiteral("1"));
    EXPECT_TRUE(window->clsSettings().Dirty);
    window->AddFlow1()[0].Undo();
    EXPECT_EQ(LevelOf(first), QStringLiteral("2"));
    EXPECT_EQ(LevelOf(second), QStringLiteral("2"));
    EXPECT_EQ(first.FillColor(), before);
    EXPECT_EQ(LevelOf(elsewhere), QStringLiteral("12"));
    window->AddFlow1()[1].Undo();
    EXPECT_EQ(LevelOf(elsewhere), QStringLiteral("2"));
}

TEST_F(LevelsForm, NodesCanBeGivenALevelThatIsNew) {
    diagram::Node &node = NodeOfLevel(2);
    Open();
    Select(1);
    Press("cmdDelete");
    PressNew(QStringLiteral("Fresh"), 0x00FFFF);
    form->cboGive()->setCurrentText(QStringLiteral("Fresh"));
    Press("cmdOK");
    EXPECT_EQ(LevelOf(node), QStringLiteral("Fresh"));
    EXPECT_EQ(node.FillColor(), 0x00FFFF);
}

TEST_F(LevelsForm, AChosenLevelThatIsDeletedTooIsChosenNoLonger) {
    diagram::Node &node = NodeOfLevel(2);
    Open();
    Select(1);
    Press("cmdDelete");
    form->cboGive()->setCurrentText(QStringLiteral("12"));
    Select(1);
    Press("cmdDelete");
    EXPECT_EQ(form->cboGive()->currentIndex(), 0);
    Press("cmdOK");
    EXPECT_EQ(LevelOf(node), QStringLiteral("2"));
}

TEST_F(LevelsForm, CancelGivesNodesNothing) {
    diagram::Node &node = NodeOfLevel(2);
    Open();
    Select(1);
    Press("cmdDelete");
    form->cboGive()->setCurrentText(QStringLiteral("12"));
    Press("cmdCancel");
    EXPECT_EQ(LevelOf(node), QStringLiteral("2"));
    EXPECT_EQ(argument().status, QString());
}

} // namespace dialogs::testing
