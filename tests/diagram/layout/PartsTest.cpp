#include "diagram/layout/Parts.h"

#include "tests/diagram/layout/LayeredGraphs.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <numeric>

namespace diagram {
namespace {

using namespace testing;

TEST(Parts, EachBoxAndEdgeStandsInOnePart) {
    const LayoutGraph graph = RandomGraph(5, 60, 30);
    std::vector<int> boxes, edges;
    for (const Part &part : PartsOf(graph)) {
        boxes.insert(boxes.end(), part.boxes.begin(), part.boxes.end());
        edges.insert(edges.end(), part.edges.begin(), part.edges.end());
        for (std::size_t i = 0; i < part.edges.size(); ++i) {
            const LayoutEdge &whole = graph.edges[std::size_t(part.edges[i])], &mine = part.graph.edges[i];
            EXPECT_EQ(part.boxes[std::size_t(mine.from)], whole.from);
            EXPECT_EQ(part.boxes[std::size_t(mine.to)], whole.to);
        }
    }
    std::ranges::sort(boxes), std::ranges::sort(edges);
    std::vector<int> all(60);
    std::iota(all.begin(), all.end(), 0);
    EXPECT_EQ(boxes, all);
    all.resize(30);
    EXPECT_EQ(edges, all);
}

TEST(Parts, WhatStandsFarOffOrOnAnotherIsNoTitle) {
    const auto parts = [](const LayoutGraph &graph) {
        std::vector<QSizeF> sizes;
        for (const Part &part : PartsOf(graph)) sizes.push_back(part.graph.sizes.front());
        return PackParts(PartsOf(graph), sizes, 10);
    };
    LayoutGraph graph = TitledGraph(); // parts: the linked ones, then each single box
    EXPECT_EQ(parts(graph)[1].y(), 100);
    EXPECT_EQ(parts(graph)[2], QPointF(1800, 0));
    EXPECT_GT(parts(graph)[0].y(), 600);
    graph.centres[3] = QPointF(90000, -1400);
    EXPECT_EQ(parts(graph)[2], QPointF(0, 0)) << "beside it, not above";
    graph.centres[3] = QPointF(0, -90000);
    EXPECT_EQ(parts(graph)[2], QPointF(0, 0)) << "far above";
    graph.centres[3] = graph.centres[4];
    EXPECT_EQ(parts(graph)[1], QPointF(0, 0)) << "the first of two on each other";
    EXPECT_GT(parts(graph)[2].y(), 600);
    graph = TitledGraph();
    graph.edges.push_back({3, 3});
    EXPECT_NE(parts(graph)[2] - parts(graph)[1], QPointF(1800, -100)) << "linked to itself";
    graph.edges.clear();
    EXPECT_EQ(parts(graph)[0], QPointF(0, 0)) << "with nothing linked there is no title";
}

} // namespace
} // namespace diagram
