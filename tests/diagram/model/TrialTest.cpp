// Places that a gesture tries, and what is written as it is told.
#include "diagram/edit/History.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"

#include <gtest/gtest.h>

using namespace diagram;

namespace {

struct TrialTest : ::testing::Test {
    Surface surface;
    Node &a = surface.Nodes().Add(0, 0, 1000, 500), &b = surface.Nodes().Add(9000, 0, 1000, 500);
    Node &c = surface.Nodes().Add(4000, 3000, 1000, 500);
    Link &link = a.Links().Add(b);
    const std::vector<Point> straight = link.Route();

    void Try(RouteTrial &trial, float top) {
        trial.Move([&] { return c.SetTop(top), top != 3000; });
    }
};

} // namespace

TEST_F(TrialTest, ALinkGivesWayToTheTriedPlaceAloneNeverToFormerOnes) {
    ASSERT_EQ(straight.size(), 2U);
    RouteTrial trial(surface, {c.Id()}, {});
    Try(trial, 0);
    const std::vector<Point> around = link.Route();
    EXPECT_GT(around.size(), 2U);
    Try(trial, 3000);
    EXPECT_EQ(link.Route(), straight);
    Try(trial, -100);
    EXPECT_NE(link.Route(), straight);
    Try(trial, 0);
    EXPECT_EQ(link.Route(), around);
    Try(trial, 0);
    EXPECT_EQ(link.Route(), around) << "trying the same place again is no other";
}

TEST_F(TrialTest, WhatIsGivenUpLeavesAllAsItWas) {
    RouteTrial trial(surface, {c.Id()}, {});
    Try(trial, 0);
    ASSERT_NE(link.Route(), straight);
    trial.GiveUp([&] { c.SetTop(3000); });
    EXPECT_EQ(link.Route(), straight);
    EXPECT_EQ(c.Top(), 3000);
}

TEST_F(TrialTest, WhatWasTriedLastStaysWhenItEnds) {
    EXPECT_FALSE(surface.Routes().IsOnTrial());
    {
        RouteTrial trial(surface, {c.Id()}, {});
        EXPECT_TRUE(surface.Routes().IsOnTrial());
        Try(trial, 0);
        ASSERT_NE(link.Route(), straight);
    }
    EXPECT_FALSE(surface.Routes().IsOnTrial());
    EXPECT_NE(link.Route(), straight);
}

TEST_F(TrialTest, ARouteThatIsMovedOntoANodeGivesWayToo) {
    Node &in = surface.Nodes().Add(0, 6000, 1000, 500), &out = surface.Nodes().Add(9000, 6000, 1000, 500);
    Link &inner = in.Links().Add(out);
    ASSERT_EQ(inner.Route().size(), 2U);
    RouteTrial trial(surface, {in.Id(), out.Id()}, {inner.Id()});
    trial.Move([&] {
        for (Node *node : {&in, &out}) node->SetTop(3000);
        LinkData moved = inner.Data();
        moved.points = {{1000, 3250}, {9000, 3250}};
        surface.Overwrite(inner, moved);
        return true;
    });
    EXPECT_GT(inner.Route().size(), 2U);
}

TEST_F(TrialTest, TakesNoNoticeOfWhatHasGoneMeanwhile) {
    RouteTrial trial(surface, {c.Id()}, {link.Id()});
    Try(trial, 0);
    ASSERT_NE(link.Route(), straight);
    surface.Remove(link);
    trial.Move([&] { return surface.Remove(c), true; });
    trial.GiveUp([] {});
    EXPECT_EQ(surface.Nodes().Count(), 2);
}

TEST_F(TrialTest, WrittenAsToldNothingGivesWayUntilTheOutermostEnds) {
    {
        const RoutesAsTold outer(surface);
        { const RoutesAsTold inner(surface); }
        c.SetTop(0);
        EXPECT_EQ(link.Route(), straight);
    }
    EXPECT_EQ(link.Route(), straight) << "what was told counts as right";
    c.SetTop(50);
    EXPECT_NE(link.Route(), straight);
}

TEST_F(TrialTest, AnItemThatUndoBringsBackIsRoutedAndGivesWayAgain) {
    AttachHistory(surface);
    const ItemId id = c.Id();
    surface.BeginAction(0);
    surface.Remove(c);
    surface.EndAction();
    surface.Undo();
    ASSERT_TRUE(surface.FindNode(id));
    surface.FindNode(id)->SetTop(0);
    EXPECT_NE(link.Route(), straight);
}
