// When a surface counts as changed, and when as it was.
#include "diagram/model/Revision.h"
#include "diagram/edit/History.h"
#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Routing.h"
#include "diagram/model/ScreenValues.h"
#include "tests/diagram/model/RandomSurface.h"

#include <functional>
#include <gtest/gtest.h>

using namespace diagram;
using namespace diagram::testing;

class RevisionTest : public ::testing::Test {
protected:
    RevisionTest() {
        AttachHistory(surface);
        node = &surface.Nodes().Add(0, 0, 1000, 500);
        other = &surface.Nodes().Add(6000, 0, 1000, 500);
        link = &node->Links().Add(*other);
        Mark();
    }
    void Mark() { marked = surface.Actions().Revision(); }
    bool Differs() const { return surface.Actions().Revision() != marked; }
    // One step that moves the node.
    void Step(float left) {
        const ActionGroup group(surface);
        node->SetLeft(left);
    }

    Surface surface;
    Node *node = nullptr, *other = nullptr;
    Link *link = nullptr;
    Revision marked;
};

TEST_F(RevisionTest, UndoingAllStepsIsNoDifference) {
    Step(100), Step(200);
    EXPECT_TRUE(Differs());
    surface.Undo();
    EXPECT_TRUE(Differs());
    surface.Undo();
    EXPECT_FALSE(Differs());
    surface.Redo();
    EXPECT_TRUE(Differs());
}

TEST_F(RevisionTest, ABranchOfRedoThatIsGoneDoesNotCountAsTheMarkedState) {
    Step(100);
    Mark();
    surface.Undo();
    EXPECT_TRUE(Differs());
    Step(300);
    EXPECT_TRUE(Differs());
    surface.Undo(), surface.Redo();
    EXPECT_TRUE(Differs());
}

TEST_F(RevisionTest, WhatIsWrittenOutsideOfStepsStays) {
    Step(100);
    Mark();
    surface.SetBackColor(0x123456);
    EXPECT_TRUE(Differs());
    surface.Undo(), surface.Redo();
    EXPECT_TRUE(Differs());
}

TEST_F(RevisionTest, EveryWriteToAnItemOutsideOfStepsCounts) {
    const std::vector<std::function<void()>> writes{
        [this] { node->SetText(QStringLiteral("text")); },
        [this] { node->SetKey(QStringLiteral("key")); },
        [this] { node->SetHidden(true); },
        [this] { node->SetZOrder(0), other->SetZOrder(0); },
        [this] { link->SetStyle(2); },
        [this] {
            link->Points().Assign({{0, 0}, {50, 50}, {90, 0}});
        },
        [this] { link->SetDestination(*node); },
        [this] { surface.SetTag(QStringLiteral("|TM_Align=2")); },
        [this] { surface.Nodes().Add(0, 0, 10, 10); },
        [this] { other->Links().Add(*node); },
        [this] { surface.Remove(*link); },
        [this] { surface.Reset(); },
    };
    for (std::size_t i = 0; i < writes.size(); ++i) {
        Mark();
        writes[i]();
        EXPECT_TRUE(Differs()) << "write " << i;
    }
}

TEST_F(RevisionTest, LookingAndSelectingIsNoDifference) {
    surface.SetxZoom(150), surface.SetyZoom(75);
    surface.SetGridLines(!surface.GridLines());
    surface.Screen().SetSnapToGrid(true);
    NodeLook defaults;
    defaults.shape = 4;
    surface.SetDefaults(defaults);
    node->SetSelected(true);
    surface.UnselectAll();
    node->Refresh();
    surface.Routes().Recalculate();
    EXPECT_FALSE(Differs());
    {
        const ActionGroup group(surface);
        surface.SetxZoom(100);
        surface.SetGridLines(!surface.GridLines());
    }
    EXPECT_FALSE(Differs());
}

TEST_F(RevisionTest, WritesOfTheSameValueAndStepsWithoutEffectAreNoDifference) {
    node->SetLeft(node->Left());
    surface.SetBackColor(surface.BackColor());
    const float before = node->Left();
    {
        const ActionGroup group(surface);
        node->SetLeft(before + 500), node->SetLeft(before);
    }
    EXPECT_FALSE(Differs());
}

TEST_F(RevisionTest, AGroupThatIsGivenUpIsNoDifference) {
    surface.BeginAction(0);
    node->SetLeft(900);
    surface.Nodes().Add(0, 5000, 10, 10);
    surface.Actions().Cancel();
    EXPECT_FALSE(Differs());
}

TEST_F(RevisionTest, LinksThatGiveWayToWhatWasShownAgainAreNoDifference) {
    Node &between = surface.Nodes().Add(3000, 0, 800, 500);
    link->SetStyle(2);
    between.SetHidden(true);
    surface.Routes().Recalculate();
    Mark();
    {
        const Uncounted filter(surface.Actions());
        between.SetHidden(false);
    }
    surface.Routes().Recalculate();
    EXPECT_FALSE(Differs());
}

TEST_F(RevisionTest, IsTakenAlongToACopyAndForgottenByOtherContent) {
    Surface copy;
    AttachHistory(copy);
    LoadBytes(copy, SaveBytes(surface));
    EXPECT_NE(copy.Actions().Revision(), surface.Actions().Revision());
    copy.Actions().SetRevision(surface.Actions().Revision());
    EXPECT_EQ(copy.Actions().Revision(), surface.Actions().Revision());
    LoadBytes(copy, SaveBytes(surface));
    EXPECT_NE(copy.Actions().Revision(), surface.Actions().Revision());
}

TEST_F(RevisionTest, StepsOfTwoSurfacesNeverMeet) {
    Surface second;
    AttachHistory(second);
    second.Actions().SetRevision(surface.Actions().Revision());
    Step(100);
    {
        const ActionGroup group(second);
        second.Nodes().Add(0, 0, 10, 10);
    }
    EXPECT_NE(second.Actions().Revision(), surface.Actions().Revision());
}
