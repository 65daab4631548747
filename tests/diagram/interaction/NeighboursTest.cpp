#include "diagram/interaction/Neighbours.h"

#include "diagram/interaction/KeyInput.h"
#include "diagram/model/Surface.h"

#include <gtest/gtest.h>

namespace diagram::testing {

namespace {

constexpr QPointF kRight(1, 0), kDown(0, 1);

class Neighbours : public ::testing::Test {
protected:
    // Pixels at zoom 100.
    Node &Add(int left, int top, int width = 100, int height = 60) {
        return surface.Nodes().Add(float(left) * 15, float(top) * 15, float(width) * 15, float(height) * 15);
    }
    Surface surface;
};

} // namespace

TEST_F(Neighbours, WhatLiesLevelComesBeforeWhatIsNearerButAbove) {
    Node &from = Add(40, 210);
    Add(40, 130, 600, 40); // a heading
    Node &level = Add(460, 200, 360, 90);
    EXPECT_EQ(NeighbourTowards(from, kRight), &level);
}

TEST_F(Neighbours, AWideNodeIsFoundFromBelowItsEnd) {
    Node &above = Add(800, 0, 100, 60);
    Node &wide = Add(0, 100, 1000, 40);
    EXPECT_EQ(NeighbourTowards(above, kDown), &wide);
    EXPECT_EQ(NeighbourTowards(wide, -kDown), &above);
}

TEST_F(Neighbours, NothingBehind) {
    Node &from = Add(500, 200);
    Add(100, 200);
    EXPECT_EQ(NeighbourTowards(from, kRight), nullptr);
}

TEST_F(Neighbours, NearestNode_LooksAllRoundAndPassesOverWhatIsHidden) {
    Node &from = Add(500, 200);
    EXPECT_EQ(NearestNode(from), nullptr);
    Node &far = Add(100, 200);
    Node &near = Add(480, 300);
    EXPECT_EQ(NearestNode(from), &near);
    near.SetHidden(true);
    EXPECT_EQ(NearestNode(from), &far);
}

TEST_F(Neighbours, NodeByKey_FollowsTabArrowsAndLinks) {
    Node &a = Add(0, 0), &b = Add(200, 0), &c = Add(400, 0);
    a.Links().Add(c);
    EXPECT_EQ(NodeByKey(surface, &a, {Qt::Key_Tab, {}}), &b);
    EXPECT_EQ(NodeByKey(surface, &b, {Qt::Key_Backtab, Qt::ShiftModifier}), &a);
    EXPECT_EQ(NodeByKey(surface, nullptr, {Qt::Key_Backtab, Qt::ShiftModifier}), &c);
    EXPECT_EQ(NodeByKey(surface, &a, {Qt::Key_Right, {}}), &b);
    EXPECT_EQ(NodeByKey(surface, &a, {Qt::Key_Right, Qt::ControlModifier | Qt::AltModifier}), &c);
    EXPECT_EQ(NodeByKey(surface, &a, {Qt::Key_Left, {}}), nullptr);
    EXPECT_EQ(NodeByKey(surface, nullptr, {Qt::Key_Left, {}}), nullptr);
    EXPECT_EQ(NodeByKey(surface, &a, {Qt::Key_A, {}}), nullptr);
}

TEST_F(Neighbours, NextLinkOf_GoesRoundAndCountsALoopOnce) {
    Node &a = Add(0, 0), &b = Add(200, 0);
    EXPECT_EQ(NextLinkOf(a, nullptr, 1), nullptr);
    Link &loop = a.Links().Add(a), &out = a.Links().Add(b), &in = b.Links().Add(a);
    EXPECT_EQ(NextLinkOf(a, nullptr, 1), &loop);
    EXPECT_EQ(NextLinkOf(a, &loop, 1), &out);
    EXPECT_EQ(NextLinkOf(a, &in, 1), &loop);
    EXPECT_EQ(NextLinkOf(a, &loop, -1), &in);
    out.SetSelectable(false);
    EXPECT_EQ(NextLinkOf(a, &loop, 1), &in);
    EXPECT_EQ(&EndTowards(in, kRight), &b);
    EXPECT_EQ(&EndTowards(in, -kRight), &a);
}

} // namespace diagram::testing
