// A diagram that is laid out in layers again moves little.
#include "diagram/layout/Layout.h"
#include "diagram/model/Surface.h"
#include "tests/yardstick/Moves.h"

#include <gmock/gmock.h>

namespace diagram {
namespace {

LayeredDrawing Draw(const LayoutGraph &graph, const LayoutOptions &options = {}) {
    return DrawInLayers(graph, options, [] { return true; }).value();
}

TEST(LayeredAgain, AfterASmallChangeBoxesMoveFarLessThanFromScratch) {
    double again = 0, scratch = 0;
    for (unsigned seed = 0; seed < 12; ++seed) {
        const yardstick::Moves moves = yardstick::MovesAfterSmallChange(yardstick::Hundred(seed), seed);
        again += moves.again, scratch += moves.scratch;
    }
    EXPECT_LT(again, 0.6 * scratch);
}

TEST(LayeredAgain, TheDrawingKeepsItsPlaceWhicheverWayItGoes) {
    for (const auto orientation :
         {LayoutOrientation::Down, LayoutOrientation::Right, LayoutOrientation::Up}) {
        LayoutGraph graph = yardstick::Hundred(3);
        const LayoutOptions options{orientation, 600, 400};
        graph.centres = Draw(graph, options).centres;
        for (QPointF &centre : graph.centres) centre += QPointF(5000, 7000);
        EXPECT_TRUE(Draw(graph, options).kept);
    }
}

TEST(LayeredAgain, WhatNeverStoodInLayersIsDrawnAnew) {
    LayoutGraph graph = yardstick::Hundred(3);
    EXPECT_FALSE(Draw(graph).kept);
    for (std::size_t i = 0; i < graph.centres.size(); ++i)
        graph.centres[i] = {double(i % 10) * 2000, double(i / 10) * 2000};
    EXPECT_FALSE(Draw(graph).kept);
}

TEST(LayeredAgain, APartThatFallsOffLiesOnNoOther) {
    LayoutGraph graph;
    graph.sizes.assign(7, QSizeF(1000, 600));
    graph.centres.resize(7);
    graph.edges = {{0, 1}, {0, 2}, {1, 3}, {1, 4}, {2, 5}, {2, 6}, {3, 5}};
    graph.centres = Draw(graph).centres;
    graph.edges = {{0, 1}, {1, 3}, {1, 4}, {2, 5}, {2, 6}};
    const LayeredDrawing drawing = Draw(graph);
    EXPECT_TRUE(drawing.kept);
    QRectF first, second;
    const auto box = [&](std::size_t i) {
        return QRectF(drawing.centres[i] - QPointF(500, 300), graph.sizes[i]);
    };
    for (const std::size_t i : {0U, 1U, 3U, 4U}) first |= box(i);
    for (const std::size_t i : {2U, 5U, 6U}) second |= box(i);
    EXPECT_FALSE(first.intersects(second));
}

TEST(LayeredAgain, OnASurfaceTheNodesStayUnlessThePageEnds) {
    Surface surface;
    std::vector<Node *> nodes;
    for (int i = 0; i < 5; ++i) nodes.push_back(&surface.Nodes().Add(3000, 3000, 1500, 900));
    for (const auto &[from, to] : {std::pair(0, 1), {0, 2}, {1, 3}, {2, 3}, {3, 4}})
        nodes[std::size_t(from)]->Links().Add(*nodes[std::size_t(to)]);
    const auto layOut = [&] { return LayOutInLayers(surface, LayoutScope::All, {}, [] { return true; }); };
    ASSERT_TRUE(layOut());
    const QRectF stood = nodes[3]->Bounds();
    Node &more = surface.Nodes().Add(0, 9000, 1500, 900);
    nodes[3]->Links().Add(more);
    ASSERT_TRUE(layOut());
    EXPECT_NEAR(nodes[3]->Bounds().center().y(), stood.center().y(), 1);
    EXPECT_LT(std::abs(nodes[3]->Bounds().center().x() - stood.center().x()), 1500);
    EXPECT_EQ(more.Top(), nodes[4]->Top());
    for (Node *node : nodes) EXPECT_GE(node->Left(), 0);
}

} // namespace
} // namespace diagram
