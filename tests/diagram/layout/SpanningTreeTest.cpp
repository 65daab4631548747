#include "diagram/layout/SpanningTree.h"

#include "diagram/layout/TidyTree.h"

#include <gmock/gmock.h>
#include <random>

namespace diagram {
namespace {

using ::testing::UnorderedElementsAre;

LayoutGraph Graph(int boxes, std::vector<LayoutEdge> edges) {
    LayoutGraph graph;
    graph.sizes.assign(std::size_t(boxes), QSizeF(1500, 750));
    for (int i = 0; i < boxes; ++i) graph.centres.emplace_back(i, 0);
    graph.edges = std::move(edges);
    return graph;
}

TEST(SpanningTree, ATreeKeepsItsEdges) {
    const std::vector<LayoutEdge> edges{{0, 1}, {0, 2}, {2, 3}};
    EXPECT_TRUE(IsForest(Graph(5, edges)));
    EXPECT_EQ(SpanningForest(Graph(5, edges)).edges, edges);
    EXPECT_TRUE(IsForest(Graph(2, {{0, 1}, {0, 1}})));
    EXPECT_TRUE(IsForest(Graph(0, {})));
}

TEST(SpanningTree, WhatIsNoTreeIsToldApart) {
    EXPECT_FALSE(IsForest(Graph(3, {{0, 2}, {1, 2}})));
    EXPECT_FALSE(IsForest(Graph(3, {{0, 1}, {1, 2}, {2, 0}})));
    EXPECT_FALSE(IsForest(Graph(1, {{0, 0}})));
}

TEST(SpanningTree, ABoxHangsWhereItIsNearestToARoot) {
    // 3 is reached over 1 and 2, and from 0 at once.
    EXPECT_THAT(SpanningForest(Graph(4, {{0, 1}, {1, 2}, {2, 3}, {0, 3}})).edges,
                UnorderedElementsAre(LayoutEdge{0, 1}, LayoutEdge{1, 2}, LayoutEdge{0, 3}));
}

TEST(SpanningTree, WhereAllAreOnACycleTheBusiestIsTheRoot) {
    EXPECT_THAT(SpanningForest(Graph(4, {{0, 2}, {2, 0}, {2, 1}, {1, 2}, {2, 3}})).edges,
                UnorderedElementsAre(LayoutEdge{2, 0}, LayoutEdge{2, 1}, LayoutEdge{2, 3}));
}

TEST(SpanningTree, OfAnyGraphTheTreeCanBeDrawn) {
    for (unsigned seed = 0; seed < 100; ++seed) {
        std::mt19937 random(seed);
        LayoutGraph graph = Graph(40, {});
        for (int i = 0; i < int(seed); ++i) graph.edges.push_back({int(random() % 40), int(random() % 40)});
        const LayoutGraph forest = SpanningForest(graph);
        EXPECT_TRUE(IsForest(forest)) << seed;
        EXPECT_EQ(TidyTree(forest, {}).size(), 40U) << seed;
    }
}

} // namespace
} // namespace diagram
