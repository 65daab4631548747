// Steps that go on with the last one.
#include "diagram/edit/History.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Revision.h"
#include "tests/diagram/edit/Drawn.h"
#include "tests/diagram/model/RandomSurface.h"

#include <gtest/gtest.h>

using namespace diagram;
using namespace diagram::testing;

class ContinuedAtRandom : public ::testing::TestWithParam<unsigned> {};

TEST_P(ContinuedAtRandom, OneStepUndoesAndRedoesAllOfThem) {
    Dice dice(GetParam());
    Drawn drawn;
    Surface &surface = drawn.surface;
    Fill(surface, dice, 40);
    {
        ActionGroup first(surface);
        surface.Nodes().Add(0, 0, 100, 100);
    }
    const QString before = Dump(surface);
    for (int part = 0; part < 6; ++part) {
        ActionGroup group(surface, part > 0);
        if (part == 0) drawn.AddNode(); // a step for certain
        Fill(surface, dice, dice.Roll(1, 9));
    }
    const QString after = Dump(surface);
    surface.Undo();
    EXPECT_EQ(Differing(before, Dump(surface)), "");
    surface.Redo();
    EXPECT_EQ(Differing(after, Dump(surface)), "");
    EXPECT_FALSE(surface.CanRedo());
    surface.Undo();
    EXPECT_EQ(Differing(before, Dump(surface)), "");
}

INSTANTIATE_TEST_SUITE_P(Seeds, ContinuedAtRandom, ::testing::Range(1U, 25U));

TEST(Continued, WithoutALastStep_NothingIsContinued) {
    Drawn drawn;
    Surface &surface = drawn.surface;
    EXPECT_FALSE(surface.Actions().Continue());
    Node &node = drawn.AddNode();
    {
        ActionGroup group(surface, true);
        node.SetLeft(100);
        EXPECT_FALSE(surface.Actions().Continue()) << "while a group is open";
    }
    surface.Undo();
    EXPECT_FALSE(surface.Actions().Continue()) << "while something can be repeated";
    surface.Redo();
    EXPECT_EQ(node.Left(), 100);
    Surface bare;
    EXPECT_FALSE(bare.Actions().Continue());
}

TEST(Continued, ContinuedStepThatComesBack_IsNone) {
    Drawn drawn;
    Surface &surface = drawn.surface;
    Node &node = drawn.AddNode();
    const Revision before = surface.Actions().Revision();
    {
        ActionGroup group(surface);
        node.SetLeft(100);
    }
    {
        ActionGroup group(surface, true);
        node.SetLeft(0);
    }
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(surface.Actions().Revision(), before);
}

TEST(Continued, WhatWasWrittenOutsideInBetween_Stays) {
    Drawn drawn;
    Surface &surface = drawn.surface;
    Node &node = drawn.AddNode();
    {
        ActionGroup group(surface);
        node.SetLeft(100);
    }
    node.SetText(QStringLiteral("outside"));
    {
        ActionGroup group(surface, true);
        node.SetLeft(200);
    }
    surface.Undo();
    EXPECT_EQ(node.Left(), 0);
    EXPECT_EQ(node.Text(), QStringLiteral("outside"));
    EXPECT_FALSE(surface.CanUndo());
}
