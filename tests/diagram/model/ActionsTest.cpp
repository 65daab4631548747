#include "diagram/model/Actions.h"

#include "diagram/edit/History.h"
#include "diagram/model/Surface.h"

#include <gtest/gtest.h>

using namespace diagram;

TEST(Actions, WithoutALogThereIsNothingToUndo) {
    Surface surface;
    Actions &actions = surface.Actions();
    actions.Begin(1);
    EXPECT_FALSE(actions.AreRecorded());
    surface.Nodes().Add(0, 0, 1, 1);
    actions.End(), actions.Undo(), actions.Redo(), actions.Cancel();
    EXPECT_FALSE(actions.Continue() || actions.CanUndo() || actions.CanRedo());
    EXPECT_EQ(surface.Nodes().Count(), 1);
}

TEST(Actions, WhatIsUncountedMakesNoOtherRevisionUntilTheOutermostEnds) {
    Surface surface;
    Node &node = surface.Nodes().Add(0, 0, 1, 1);
    const Revision before = surface.Actions().Revision();
    {
        const Uncounted outer(surface.Actions());
        { const Uncounted inner(surface.Actions()); }
        node.SetLeft(50);
    }
    EXPECT_EQ(surface.Actions().Revision(), before);
    node.SetLeft(60);
    EXPECT_FALSE(surface.Actions().Revision() == before);
}

TEST(Actions, ForgettingKeepsWhatIsThere) {
    Surface surface;
    AttachHistory(surface);
    Node &node = surface.Nodes().Add(0, 0, 1, 1);
    surface.Actions().Begin(1);
    EXPECT_TRUE(surface.Actions().AreRecorded());
    node.SetLeft(50);
    surface.Actions().End();
    const Revision after = surface.Actions().Revision();
    ASSERT_TRUE(surface.CanUndo());
    surface.Actions().Forget();
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(surface.Actions().Revision(), after);
    EXPECT_EQ(node.Left(), 50);
}
