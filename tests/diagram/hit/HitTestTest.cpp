#include "diagram/hit/HitTest.h"

#include "diagram/hit/Grips.h"
#include "diagram/model/Stacking.h"
#include "diagram/scene/Scene.h"
#include "tests/diagram/model/RandomSurface.h"

#include <gtest/gtest.h>

using namespace diagram;
using namespace diagram::testing;

namespace {

struct Drawn {
    Surface surface;
    Scene scene{surface};
    Node &AddNode(float left, float top, float width = 2000, float height = 1000) {
        return surface.Nodes().Add(left, top, width, height);
    }
    Hit At(double x, double y) { return HitTest(scene, {x, y}); }
};

} // namespace

TEST(HitTest, EmptySurfaceIsHitNowhere) {
    Drawn drawn;
    EXPECT_EQ(drawn.At(0, 0).kind, HitKind::Nothing);
}

TEST(HitTest, ANodeIsHitInsideItsOutlineOnly) {
    Drawn drawn;
    Node &node = drawn.AddNode(0, 0);
    node.SetShape(3); // a diamond
    EXPECT_EQ(drawn.At(20, 20).kind, HitKind::Nothing);
    EXPECT_EQ(drawn.At(600, 500).node, &node);
}

TEST(HitTest, TheTopmostNodeIsHit) {
    Drawn drawn;
    Node &lower = drawn.AddNode(0, 0), &upper = drawn.AddNode(500, 0);
    EXPECT_EQ(drawn.At(700, 100).node, &upper);
    lower.BringToFront();
    EXPECT_EQ(drawn.At(700, 100).node, &lower);
}

TEST(HitTest, HiddenNodesAreNotHit) {
    Drawn drawn;
    drawn.AddNode(0, 0).SetHidden(true);
    EXPECT_EQ(drawn.At(100, 100).kind, HitKind::Nothing);
    EXPECT_EQ(NodeAtPoint(drawn.scene, 100, 100), nullptr);
}

TEST(HitTest, BesideEachSideOfANodeALinkStarts) {
    Drawn drawn;
    Node &node = drawn.AddNode(1000, 1000);
    const auto places = LinkStartPlaces(node.Bounds(), HitOptions().handleSize);
    for (int i = 0; i < 4; ++i) {
        const Hit hit = HitTest(drawn.scene, places[size_t(i)]);
        EXPECT_EQ(hit.kind, HitKind::LinkStart) << i;
        EXPECT_EQ(hit.node, &node);
        EXPECT_EQ(hit.index, i);
    }
    EXPECT_EQ(drawn.At(2000, 1500).kind, HitKind::Node) << "the middle moves the node";
    node.SetSelectable(false);
    EXPECT_EQ(HitTest(drawn.scene, places[0]).kind, HitKind::Nothing);
}

TEST(HitTest, LinkStart_LiesAboveLinksAndBelowNodes) {
    Drawn drawn;
    Node &node = drawn.AddNode(1000, 1000), &other = drawn.AddNode(5000, 1000);
    node.Links().Add(other);
    const QPointF right = LinkStartPlaces(node.Bounds(), HitOptions().handleSize)[1];
    EXPECT_EQ(HitTest(drawn.scene, right).kind, HitKind::LinkStart);
    HitOptions without;
    without.linkStarts = false;
    EXPECT_EQ(HitTest(drawn.scene, right, without).kind, HitKind::Link);
    Node &above = drawn.AddNode(3050, 1000);
    EXPECT_EQ(HitTest(drawn.scene, right).node, &above);
    above.SetSelectable(false);
    EXPECT_EQ(HitTest(drawn.scene, right).node, &node) << "what can't be selected covers nothing";
}

TEST(HitTest, SmallSelectedNode_CanBeGraspedByItsBody) {
    Drawn drawn;
    for (const float side : {0.0F, 15.0F, 60.0F, 150.0F, 400.0F}) {
        Node &node = drawn.AddNode(3000, 3000, side, side);
        node.SetSelected(true);
        EXPECT_EQ(drawn.At(3000 + side / 2, 3000 + side / 2).kind, HitKind::Node) << side;
        const auto places = HandlePlaces(node.Bounds(), HitOptions().handleSize);
        for (int i = 0; i < 8; ++i) EXPECT_EQ(HitTest(drawn.scene, places[size_t(i)]).index, i) << side;
        node.SetHidden(true);
    }
}

TEST(HitTest, ASmallNodeHasNoLinkStart) {
    Drawn drawn;
    const Node &node = drawn.AddNode(1000, 1000, 100, 100);
    const HitOptions options;
    for (const QPointF &place : LinkStartPlaces(node.Bounds(), options.handleSize))
        EXPECT_NE(HitTest(drawn.scene, place, options).kind, HitKind::LinkStart);
}

TEST(HitTest, AllEightHandlesOfASelectedNode) {
    Drawn drawn;
    Node &node = drawn.AddNode(0, 0);
    const QPointF places[] = {{0, 0},       {1000, 0},    {2000, 0}, {2000, 500},
                              {2000, 1000}, {1000, 1000}, {0, 1000}, {0, 500}};
    EXPECT_EQ(drawn.At(-30, -30).kind, HitKind::Nothing);
    node.SetSelected(true);
    for (int i = 0; i < 8; ++i) {
        const Hit hit = HitTest(drawn.scene, places[i] + QPointF(20, -20));
        EXPECT_EQ(hit.kind, HitKind::Handle) << i;
        EXPECT_EQ(hit.index, i);
    }
    HitOptions bare;
    bare.handles = false;
    EXPECT_EQ(HitTest(drawn.scene, {-30, -30}, bare).kind, HitKind::Nothing);
}

TEST(HitTest, AHandleCountsBeforeANodeThatLiesOverIt) {
    Drawn drawn;
    Node &node = drawn.AddNode(0, 0);
    drawn.AddNode(1500, 500);
    node.SetSelected(true);
    EXPECT_EQ(drawn.At(2000, 1000).kind, HitKind::Handle);
}

TEST(HitTest, ItemsThatAreNotSelectableAreNotThere) {
    Drawn drawn;
    Node &node = drawn.AddNode(0, 0), &far = drawn.AddNode(8000, 0);
    node.SetSelected(true);
    node.SetSelectable(false);
    EXPECT_EQ(drawn.At(10, 10).kind, HitKind::Nothing);
    EXPECT_EQ(drawn.At(1000, 500).kind, HitKind::Nothing);
    Link &link = node.Links().Add(far);
    link.SetText(QStringLiteral("label"));
    EXPECT_EQ(drawn.At(5000, 500).kind, HitKind::LinkLabel);
    EXPECT_EQ(drawn.At(3000, 500).kind, HitKind::Link);
    link.SetSelectable(false);
    EXPECT_EQ(drawn.At(5000, 500).kind, HitKind::Nothing);
    EXPECT_EQ(drawn.At(3000, 500).kind, HitKind::Nothing);
}

TEST(HitTest, WhatLiesBelowItemsThatAreNotSelectableIsHit) {
    Drawn drawn;
    Node &node = drawn.AddNode(3000, 3000), &left = drawn.AddNode(0, 3000),
         &right = drawn.AddNode(8000, 3000);
    Link &link = left.Links().Add(right);
    link.SetAddPointsMode(true);
    link.Points().Assign({{2000, 3500}, {8000, 3500}}); // across the node
    ASSERT_EQ(drawn.At(4000, 3500).link, &link);
    link.SetSelectable(false);
    EXPECT_EQ(drawn.At(4000, 3500).node, &node);
    Node &month = drawn.AddNode(3000, 3000);
    ASSERT_EQ(drawn.At(4000, 3700).node, &month);
    month.SetSelectable(false);
    EXPECT_EQ(drawn.At(4000, 3700).node, &node);
    EXPECT_EQ(NodeAtPoint(drawn.scene, 4000, 3700), &month);
    EXPECT_EQ(SelectableNodeAt(drawn.scene, {4000, 3700}), &node);
}

TEST(HitTest, ALinkIsHitBySegmentWithinTheTolerance) {
    Drawn drawn;
    Link &link = drawn.AddNode(0, 0).Links().Add(drawn.AddNode(8000, 4000));
    link.SetStyle(5);
    const auto &route = link.Route();
    const Hit hit = drawn.At(route[1].x + 40, 2500);
    EXPECT_EQ(hit.kind, HitKind::Link);
    EXPECT_EQ(hit.link, &link);
    EXPECT_EQ(hit.index, 1);
    EXPECT_EQ(drawn.At(route[1].x + 88, 2500).kind, HitKind::Link);
    EXPECT_EQ(drawn.At(route[1].x + 95, 2500).kind, HitKind::Nothing);
    EXPECT_EQ(LinkAtPoint(drawn.scene, route[1].x, 2500), &link);
    EXPECT_EQ(LinkAtPoint(drawn.scene, route[1].x + 300, 2500), nullptr);
    EXPECT_EQ(LinkAtPoint(drawn.scene, route[1].x + 300, 2500, 400), &link);
}

TEST(HitTest, OfTwoLinksTheNearestIsHit) {
    Drawn drawn;
    Node &left = drawn.AddNode(0, 0), &right = drawn.AddNode(9000, 0);
    const auto add = [&](float y) -> Link & {
        Link &link = left.Links().Add(right);
        link.SetAddPointsMode(true);
        link.Points().Assign({{2000, y}, {9000, y}});
        return link;
    };
    Link &lower = add(500), &upper = add(600);
    EXPECT_EQ(drawn.At(5000, 530).link, &lower);
    EXPECT_EQ(drawn.At(5000, 570).link, &upper);
    EXPECT_EQ(LinkAtPoint(drawn.scene, 5000, 530), &lower);
    EXPECT_EQ(LinkAtPoint(drawn.scene, 5000, 570), &upper);
    upper.Points().Assign({{2000, 500}, {9000, 500}});
    EXPECT_EQ(drawn.At(5000, 520).link, &upper) << "the topmost of those at the same distance";
    lower.BringToFront();
    EXPECT_EQ(drawn.At(5000, 520).link, &lower);
}

TEST(HitTest, BesideALineANodeBelowItIsHitAndOnItTheLink) {
    Drawn drawn;
    Node &node = drawn.AddNode(3000, 3000);
    Link &link = drawn.AddNode(0, 3000).Links().Add(drawn.AddNode(8000, 3000));
    link.SetAddPointsMode(true);
    link.Points().Assign({{2000, 3500}, {8000, 3500}}); // across the node
    EXPECT_EQ(drawn.At(4000, 3505).link, &link);
    EXPECT_EQ(drawn.At(4000, 3540).node, &node);
    EXPECT_EQ(drawn.At(2500, 3540).link, &link) << "beside the node";
}

TEST(HitTest, InsideOfANodeItsOwnLinksAreNotHit) {
    Drawn drawn;
    Node &node = drawn.AddNode(0, 0);
    Link &link = node.Links().Add(drawn.AddNode(8000, 0));
    EXPECT_EQ(drawn.At(1960, 500).node, &node);
    EXPECT_EQ(drawn.At(2040, 500).link, &link);
}

TEST(HitTest, ALinkBetweenNodesOnAFrameIsHitWithinTheTolerance) {
    Drawn drawn;
    Node &frame = drawn.AddNode(0, 0, 12000, 6000);
    Link &link = drawn.AddNode(1000, 1000).Links().Add(drawn.AddNode(8000, 1000));
    EXPECT_EQ(drawn.At(5000, 1570).link, &link);
    EXPECT_EQ(drawn.At(5000, 1620).node, &frame);
}

TEST(HitTest, ACurveIsHitOnItsLineAndNotBetweenItsPoints) {
    Drawn drawn;
    Link &link = drawn.AddNode(0, 0).Links().Add(drawn.AddNode(9000, 6000));
    link.SetStyle(1);
    const QPointF on = drawn.scene.LinkPath(link).pointAtPercent(0.3);
    EXPECT_EQ(HitTest(drawn.scene, on).kind, HitKind::Link);
    EXPECT_EQ(HitTest(drawn.scene, ToQPointF(link.Route()[1])).kind, HitKind::Nothing);
}

TEST(HitTest, BendsAndSegmentsOfASelectedLink) {
    Drawn drawn;
    Link &link = drawn.AddNode(0, 0).Links().Add(drawn.AddNode(8000, 4000));
    link.SetStyle(5);
    const auto route = link.Route();
    EXPECT_EQ(HitTest(drawn.scene, ToQPointF(route[1])).kind, HitKind::Link);
    link.SetSelected(true);
    const Hit bend = HitTest(drawn.scene, ToQPointF(route[1]));
    EXPECT_EQ(bend.kind, HitKind::Bend);
    EXPECT_EQ(bend.index, 1);
    const Hit segment = HitTest(drawn.scene, (ToQPointF(route[1]) + ToQPointF(route[2])) / 2);
    EXPECT_EQ(segment.kind, HitKind::SegmentHandle);
    EXPECT_EQ(segment.index, 1);
}

TEST(HitTest, TheLabelOfALinkIsHitAsLabel) {
    Drawn drawn;
    Link &link = drawn.AddNode(0, 0).Links().Add(drawn.AddNode(8000, 0));
    link.SetText(QStringLiteral("a label"));
    const QRectF label = drawn.scene.LabelBounds(link);
    EXPECT_EQ(HitTest(drawn.scene, label.topLeft() + QPointF(5, 5)).kind, HitKind::LinkLabel);
}

TEST(HitTest, FindsTheSameAsLookingAtEveryNode) {
    Dice dice(7);
    Drawn drawn;
    Fill(drawn.surface, dice, 400);
    for (int i = 0; i < 500; ++i) {
        const QPointF point(dice.Real(-9000, 12000), dice.Real(-9000, 12000));
        const Node *expected = nullptr;
        for (Item *item : drawn.surface.Stacking().Order()) {
            const Node *node = item->AsNode();
            if (!node || node->Hidden() || node->Width() < 15 || node->Height() < 15) continue;
            if (drawn.scene.NodeOutline(*node).contains(point)) expected = node;
        }
        ASSERT_EQ(NodeAtPoint(drawn.scene, float(point.x()), float(point.y())), expected);
    }
}
