// What belongs together stays together in the layered layout.
#include "diagram/layout/Boxes.h"
#include "diagram/layout/LayeredClusters.h"
#include "diagram/layout/Layouts.h"
#include "diagram/model/Surface.h"
#include "tests/yardstick/Crossings.h"

#include <gmock/gmock.h>
#include <map>
#include <random>

namespace diagram {
namespace {

const LayoutOptions kOptions{LayoutOrientation::Down, 600, 400};

LayeredDrawing Draw(const LayoutGraph &graph, const LayoutOptions &options = kOptions) {
    return DrawInLayers(graph, options, [] { return true; }).value();
}

// Boxes of many sizes, some without a cluster; edges of every kind; several parts.
LayoutGraph RandomGraph(unsigned seed) {
    std::mt19937 random(seed);
    const unsigned boxes = 2 + unsigned(random() % 60), clusters = 1 + unsigned(random() % 6);
    LayoutGraph graph;
    for (unsigned i = 0; i < boxes; ++i) {
        graph.sizes.emplace_back(200 + random() % 2000, 200 + random() % 900);
        graph.centres.emplace_back(random() % 20000, random() % 20000);
        graph.clusters.push_back(int(random() % (clusters + 1)) - 1);
    }
    for (unsigned i = 0; i < boxes * (1 + seed % 3) / 2; ++i)
        graph.edges.push_back({int(random() % boxes), int(random() % boxes)});
    if (seed % 2 == 0) graph.labels.assign(graph.edges.size(), QSizeF(600, 200));
    return graph;
}

std::map<int, QRectF> ExtentsOf(const LayoutGraph &graph, const LayeredDrawing &drawing) {
    std::map<int, QRectF> extents;
    for (std::size_t i = 0; i < graph.sizes.size(); ++i)
        if (graph.clusters[i] >= 0)
            extents[graph.clusters[i]] |= BoxAround(drawing.centres[i], graph.sizes[i]);
    return extents;
}

void ExpectApart(const LayoutGraph &graph, const LayeredDrawing &drawing) {
    const auto extents = ExtentsOf(graph, drawing);
    for (const auto &[cluster, extent] : extents)
        for (const auto &[other, otherExtent] : extents)
            EXPECT_TRUE(cluster == other || !extent.intersects(otherExtent)) << cluster << ", " << other;
}

TEST(LayeredClusters, NoClusterLiesOnAnotherAndNoLinkLeadsThroughABox) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        const LayoutGraph graph = RandomGraph(seed);
        const LayeredDrawing drawing = Draw(graph);
        ExpectApart(graph, drawing);
        EXPECT_FALSE(AnyTooNear(graph.sizes, drawing.centres, 50));
        const yardstick::Ways routes = yardstick::RoutesOf(graph, drawing);
        EXPECT_EQ(yardstick::MeetingsOf(graph, drawing.centres, routes), 0);
    }
}

TEST(LayeredClusters, WhicheverWayTheLayersGo) {
    for (const auto orientation :
         {LayoutOrientation::Up, LayoutOrientation::Right, LayoutOrientation::Left}) {
        const LayoutGraph graph = RandomGraph(7);
        ExpectApart(graph, Draw(graph, {orientation, 600, 400}));
    }
}

TEST(LayeredClusters, WithoutThemTheyDoLieOnEachOther) {
    LayoutGraph graph = RandomGraph(11);
    const auto clusters = std::exchange(graph.clusters, {});
    const LayeredDrawing drawing = Draw(graph);
    graph.clusters = clusters;
    const auto extents = ExtentsOf(graph, drawing);
    ASSERT_GT(extents.size(), 1U);
    EXPECT_TRUE(extents.begin()->second.intersects(std::next(extents.begin())->second));
}

TEST(LayeredClusters, OneForAllChangesNothing) {
    LayoutGraph graph = RandomGraph(4);
    graph.clusters.assign(graph.sizes.size(), 3);
    const auto together = Draw(graph).centres;
    graph.clusters.clear();
    EXPECT_EQ(together, Draw(graph).centres);
}

TEST(LayeredClusters, ThoseThatFollowEachOtherFromLayerToLayerNeedNoStripes) {
    LayoutGraph graph;
    graph.sizes.assign(9, QSizeF(1000, 600));
    graph.centres.resize(9);
    for (int i = 0; i < 6; ++i) graph.edges.push_back({i, i + 3});
    const auto alone = Draw(graph).centres;
    graph.clusters = {0, 0, 0, 1, 1, 1, -1, -1, -1};
    const LayeredDrawing together = Draw(graph);
    ExpectApart(graph, together);
    const QRectF extent = ExtentOf(graph.sizes, together.centres), usual = ExtentOf(graph.sizes, alone);
    EXPECT_LE(extent.width(), usual.width());
    EXPECT_EQ(extent.height(), usual.height());
}

TEST(LayeredClusters, WhatHasNeitherClusterNorLinkStandsInNoLayerOfTheirs) {
    LayoutGraph graph;
    graph.sizes.assign(6, QSizeF(1000, 600));
    graph.centres.resize(6);
    graph.edges = {{0, 1}, {2, 3}};
    graph.clusters = {0, 0, 0, 0, -1, -1};
    const LayeredDrawing drawing = Draw(graph);
    const QRectF cluster = ExtentsOf(graph, drawing).at(0);
    for (const std::size_t loose : {4U, 5U})
        EXPECT_FALSE(cluster.intersects(BoxAround(drawing.centres[loose], graph.sizes[loose])));
}

TEST(LayeredClusters, LinksStillLeadDownAndUnconnectedPartsBeginAtTheTop) {
    LayoutGraph graph;
    graph.sizes.assign(6, QSizeF(1000, 600));
    graph.centres.resize(6);
    graph.edges = {{0, 1}, {1, 2}, {3, 4}};
    graph.clusters = {0, 1, 0, 1, 0, 1};
    const auto at = Draw(graph).centres;
    EXPECT_LT(at[0].y(), at[1].y());
    EXPECT_LT(at[1].y(), at[2].y());
    EXPECT_LT(at[3].y(), at[4].y());
    EXPECT_EQ(at[0].y(), at[3].y());
    EXPECT_EQ(at[0].y(), at[5].y());
    EXPECT_EQ(at[0].x() < at[1].x(), at[4].x() < at[3].x());
}

TEST(LayeredClusters, TheSameGraphGivesTheSameDrawing) {
    const LayoutGraph graph = RandomGraph(9);
    EXPECT_EQ(Draw(graph).centres, Draw(graph).centres);
}

TEST(LayeredClusters, TheHierarchicalLayoutAsksWhoBelongsTogether) {
    Surface surface;
    std::vector<Node *> nodes;
    for (int i = 0; i < 6; ++i) nodes.push_back(&surface.Nodes().Add(0, 0, 1500, 900));
    for (int i = 1; i < 6; ++i) nodes[0]->Links().Add(*nodes[std::size_t(i)]);
    LayoutOrder order;
    order.cluster = [&](const Node &node) { return &node == nodes[0] ? -1 : node.Id() == nodes[3]->Id(); };
    FindLayout(QStringLiteral("hierarchical"))->layOut(surface, order);
    for (const std::size_t other : {1U, 2U, 4U, 5U})
        EXPECT_EQ(nodes[3]->Left() < nodes[other]->Left(), nodes[3]->Left() < nodes[1]->Left());
}

} // namespace
} // namespace diagram
