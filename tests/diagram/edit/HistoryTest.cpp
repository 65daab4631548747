#include "diagram/edit/History.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Revision.h"
#include "diagram/model/Stacking.h"
#include "support/Error.h"
#include "tests/diagram/edit/Drawn.h"
#include "tests/diagram/model/RandomSurface.h"
#include "tests/Errors.h"

#include <gtest/gtest.h>

using namespace diagram;
using namespace diagram::testing;

class HistoryAtRandom : public ::testing::TestWithParam<unsigned> {};

TEST_P(HistoryAtRandom, UndoesAllAndRedoesAllExactly) {
    Dice dice(GetParam());
    Drawn drawn;
    Surface &surface = drawn.surface;
    Fill(surface, dice, 60);
    const QString start = Dump(surface);
    for (int step = 0; step < 30; ++step) {
        ActionGroup group(surface);
        Fill(surface, dice, dice.Roll(1, 12));
        if (dice.Flip()) {
            ActionGroup inner(surface);
            Fill(surface, dice, 3);
        }
    }
    const QString end = Dump(surface);
    int steps = 0;
    while (surface.CanUndo()) {
        surface.Undo();
        ++steps;
    }
    ASSERT_EQ(Differing(start, Dump(surface)), "");
    for (int i = 0; i < steps; ++i) surface.Redo();
    EXPECT_EQ(Differing(end, Dump(surface)), "");
    EXPECT_FALSE(surface.CanRedo());
}

TEST_P(HistoryAtRandom, StopsAtEachStepOnTheWay) {
    Dice dice(GetParam() + 1000);
    Drawn drawn;
    Surface &surface = drawn.surface;
    Fill(surface, dice, 40);
    std::vector<QString> states{Dump(surface)};
    for (int step = 0; step < 12; ++step) {
        surface.BeginAction(1);
        Fill(surface, dice, 6);
        surface.EndAction();
        const QString state = Dump(surface);
        if (state != states.back()) states.push_back(state);
    }
    for (int round = 0; round < 3; ++round) {
        for (std::size_t i = states.size() - 1; i > 0; --i) {
            surface.Undo();
            ASSERT_EQ(Differing(states[i - 1], Dump(surface)), "") << "undo to " << i - 1;
        }
        EXPECT_FALSE(surface.CanUndo());
        for (std::size_t i = 1; i < states.size(); ++i) {
            surface.Redo();
            ASSERT_EQ(Differing(states[i], Dump(surface)), "") << "redo to " << i;
        }
    }
}

TEST_P(HistoryAtRandom, WritesOutsideOfGroupsHarmNeitherUndoNorRedo) {
    Dice dice(GetParam() + 2000);
    Drawn drawn;
    Surface &surface = drawn.surface;
    for (int round = 0; round < 120; ++round) {
        const int what = dice.Roll(0, 5);
        if (what == 0) surface.Undo();
        if (what == 1) surface.Redo();
        if (what == 2) Fill(surface, dice, 3);
        if (what > 2) {
            ActionGroup group(surface);
            Fill(surface, dice, 4);
        }
        for (const auto &link : surface.Links()) {
            ASSERT_GE(link->Route().size(), 2U);
            ASSERT_EQ(surface.FindNode(link->Data().source), &link->Source());
        }
        for (Node &node : surface.Nodes()) {
            ASSERT_TRUE(node.Key().isEmpty() || surface.Nodes().Find(node.Key()) == &node);
        }
        ASSERT_EQ(surface.Stacking().Order().size(),
                  surface.Links().size() + std::size_t(surface.Nodes().Count()));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, HistoryAtRandom, ::testing::Range(1U, 26U));

TEST(History, OneGroupIsOneStep) {
    Drawn drawn;
    Node &node = drawn.AddNode();
    drawn.surface.BeginAction(5);
    node.SetText(QStringLiteral("a"));
    node.SetFillColor(7);
    drawn.surface.EndAction();
    drawn.surface.Undo();
    EXPECT_EQ(node.Text(), QString());
    EXPECT_EQ(node.FillColor(), support::kWhite);
    EXPECT_FALSE(drawn.surface.CanUndo());
}

TEST(History, AGroupWithoutAnyDifferenceIsNoStep) {
    Drawn drawn;
    Node &node = drawn.AddNode();
    {
        ActionGroup group(drawn.surface);
        node.SetText(QStringLiteral("a"));
        node.SetText(QString());
        drawn.surface.Remove(drawn.AddNode());
    }
    EXPECT_FALSE(drawn.surface.CanUndo());
}

TEST(History, InnerGroupsBelongToTheOutermost) {
    Drawn drawn;
    Node &node = drawn.AddNode();
    {
        ActionGroup outer(drawn.surface);
        node.SetText(QStringLiteral("a"));
        {
            ActionGroup inner(drawn.surface);
            node.SetText(QStringLiteral("b"));
        }
        EXPECT_FALSE(drawn.surface.CanUndo());
    }
    drawn.surface.Undo();
    EXPECT_EQ(node.Text(), QString());
}

TEST(History, UndoInAnOpenGroupIsError5) {
    Drawn drawn;
    ActionGroup group(drawn.surface);
    EXPECT_EQ(tests::NumberOf([&] { drawn.surface.Undo(); }), 5);
}

TEST(History, WritesOutsideOfGroupsAreNoSteps) {
    Drawn drawn;
    drawn.AddNode().SetText(QStringLiteral("a"));
    EXPECT_FALSE(drawn.surface.CanUndo());
}

TEST(History, UndoLeavesPropertiesWrittenOutsideOfGroups) {
    Drawn drawn;
    Node &node = drawn.AddNode();
    {
        ActionGroup group(drawn.surface);
        node.SetText(QStringLiteral("a"));
    }
    node.SetFont(Font(QStringLiteral("Courier"), 12));
    drawn.surface.Undo();
    EXPECT_EQ(node.Text(), QString());
    EXPECT_EQ(node.Font().Name(), QStringLiteral("Courier"));
}

TEST(History, AnItemThatIsGoneIsPassedOver) {
    Drawn drawn;
    Node &node = drawn.AddNode();
    {
        ActionGroup group(drawn.surface);
        node.SetText(QStringLiteral("a"));
    }
    drawn.surface.Remove(node);
    drawn.surface.Undo();
    EXPECT_EQ(drawn.surface.Nodes().Count(), 0);
    drawn.surface.Redo();
    EXPECT_EQ(drawn.surface.Nodes().Count(), 0);
}

TEST(History, ANewStepDropsWhatCouldBeRedone) {
    Drawn drawn;
    Node &node = drawn.AddNode();
    {
        ActionGroup group(drawn.surface);
        node.SetText(QStringLiteral("a"));
    }
    drawn.surface.Undo();
    ASSERT_TRUE(drawn.surface.CanRedo());
    {
        ActionGroup group(drawn.surface);
        node.SetText(QStringLiteral("b"));
    }
    EXPECT_FALSE(drawn.surface.CanRedo());
}

TEST(History, MovingANodeBringsBackTheFormerPointsOfItsLinks) {
    Drawn drawn;
    Node &a = drawn.AddNode(), &b = drawn.AddNode(5000, 5000);
    Link &link = a.Links().Add(b);
    link.SetAddPointsMode(true);
    link.Points().Assign({{1000, 250}, {2222, 333}, {5000, 5250}});
    link.SetAddPointsMode(false);
    const auto before = link.Route();
    {
        ActionGroup group(drawn.surface);
        b.SetBounds(9000, 100, 1000, 500);
    }
    EXPECT_NE(link.Route(), before);
    drawn.surface.Undo();
    EXPECT_EQ(link.Route(), before);
}

TEST(History, PlacesThatNodesHaveOnlyWithinAGroupMoveNoBends) {
    Drawn drawn;
    Node &a = drawn.AddNode(), &b = drawn.AddNode(5000, 5000);
    Link &link = a.Links().Add(b);
    link.SetStyle(9);
    link.SetOwnBends(true);
    const auto before = link.Route();
    {
        ActionGroup group(drawn.surface);
        a.SetBounds(9000, 9000, 1000, 500);
        b.SetTop(100);
        a.SetBounds(0, 0, 1000, 500);
        b.SetTop(5000);
    }
    EXPECT_EQ(link.Route(), before);
    EXPECT_FALSE(drawn.surface.CanUndo());
}

TEST(History, ALinkOfANodeMovedBackByUndoIsRoutedWhenItsPointsChangedSince) {
    Drawn drawn;
    Node &a = drawn.AddNode(), &b = drawn.AddNode(5000, 5000);
    Link &link = a.Links().Add(b);
    {
        ActionGroup group(drawn.surface);
        b.SetTop(100);
    }
    link.SetStyle(5); // outside of any group
    drawn.surface.Undo();
    EXPECT_FLOAT_EQ(link.Route().back().y, b.Top() + b.Height() / 2);
    EXPECT_EQ(link.Route().size(), 4U);
}

TEST(History, DeletedItemsComeBackWithIdentityAndPlace) {
    Drawn drawn;
    Node &a = drawn.AddNode(), &b = drawn.AddNode(5000, 5000);
    drawn.AddNode(7000, 7000);
    a.Links().Add(b);
    a.SetKey(QStringLiteral("{A}"));
    const QString before = Dump(drawn.surface);
    b.SetSelected(true);
    drawn.surface.DeleteSelection();
    EXPECT_EQ(drawn.surface.Links().size(), 0U);
    drawn.surface.Undo();
    EXPECT_EQ(Dump(drawn.surface), before);
    EXPECT_EQ(drawn.surface.SelectedNode(), nullptr);
}

TEST(History, AKeyGivenAfterTheStepLastsThroughUndoAndRedo) {
    Drawn drawn;
    {
        ActionGroup group(drawn.surface);
        drawn.AddNode();
    }
    drawn.surface.Nodes().Item(1).SetKey(QStringLiteral("{A}"));
    drawn.surface.Undo();
    EXPECT_EQ(drawn.surface.Nodes().Find(QStringLiteral("{A}")), nullptr);
    drawn.surface.Redo();
    EXPECT_EQ(drawn.surface.Nodes().Item(QStringLiteral("{A}")).Id(), drawn.surface.Nodes().Item(1).Id());
}

TEST(History, KeysChangedCrosswiseComeBack) {
    Drawn drawn;
    Node &a = drawn.AddNode(), &b = drawn.AddNode();
    a.SetKey(QStringLiteral("{A}"));
    b.SetKey(QStringLiteral("{B}"));
    {
        ActionGroup group(drawn.surface);
        a.SetKey(QString());
        b.SetKey(QStringLiteral("{A}"));
        a.SetKey(QStringLiteral("{B}"));
    }
    drawn.surface.Undo();
    EXPECT_EQ(a.Key(), QStringLiteral("{A}"));
    EXPECT_EQ(b.Key(), QStringLiteral("{B}"));
    EXPECT_EQ(&drawn.surface.Nodes().Item(QStringLiteral("{B}")), &b);
}

TEST(History, CancelTakesBackTheGroupAndKeepsRedo) {
    Drawn drawn;
    Node &node = drawn.AddNode();
    {
        ActionGroup group(drawn.surface);
        node.SetText(QStringLiteral("a"));
    }
    drawn.surface.Undo();
    const QString before = Dump(drawn.surface);
    drawn.surface.BeginAction(1);
    node.SetLeft(700);
    drawn.AddNode();
    drawn.surface.Actions().Cancel();
    EXPECT_EQ(Dump(drawn.surface), before);
    EXPECT_TRUE(drawn.surface.CanRedo());
    EXPECT_FALSE(drawn.surface.CanUndo());
}

TEST(History, SelectingIsNeverRecorded) {
    Drawn drawn;
    Node &node = drawn.AddNode();
    {
        ActionGroup group(drawn.surface);
        node.SetSelected(true);
    }
    EXPECT_FALSE(drawn.surface.CanUndo());
    EXPECT_TRUE(node.Selected());
}

TEST(History, PageGrown_IsKeptByUndoAndNoFile) {
    Drawn drawn;
    Surface &surface = drawn.surface;
    const Revision before = surface.Actions().Revision();
    {
        ActionGroup group(surface);
        surface.PageGrown(150, 300);
    }
    EXPECT_EQ(surface.Data().grownLeft, 150);
    EXPECT_EQ(surface.Actions().Revision(), before) << "no content";
    surface.Undo();
    EXPECT_EQ(surface.Data().grownTop, 0);
    surface.Redo();
    EXPECT_EQ(surface.Data().grownTop, 300);
    Surface other;
    LoadBytes(other, SaveBytes(surface));
    EXPECT_EQ(other.Data().grownTop, 0);
    LoadBytes(surface, SaveBytes(other));
    EXPECT_EQ(surface.Data().grownTop, 300) << "the view still knows of it";
}
