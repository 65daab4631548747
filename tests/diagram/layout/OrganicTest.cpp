#include "diagram/layout/Organic.h"

#include "diagram/layout/Boxes.h"
#include "diagram/layout/OffLines.h"
#include "tests/diagram/layout/Graphs.h"

#include <cmath>
#include <gmock/gmock.h>
#include <random>

namespace diagram {
namespace {

using testing::Graph;
using testing::kNobody;

LayoutGraph Grid(int across, int down) {
    std::vector<LayoutEdge> edges;
    for (int y = 0; y < down; ++y)
        for (int x = 0; x < across; ++x) {
            if (x + 1 < across) edges.push_back({y * across + x, y * across + x + 1});
            if (y + 1 < down) edges.push_back({y * across + x, (y + 1) * across + x});
        }
    return Graph(across * down, edges);
}

std::vector<QPointF> Places(const LayoutGraph &graph) {
    Progress progress(kNobody);
    return Organic(graph, {}, progress);
}

double Apart(const QPointF &a, const QPointF &b) { return std::hypot(a.x() - b.x(), a.y() - b.y()); }

double LongestEdge(const LayoutGraph &graph, const std::vector<QPointF> &at) {
    double longest = 0;
    for (const LayoutEdge &edge : graph.edges)
        longest = std::max(longest, Apart(at[std::size_t(edge.from)], at[std::size_t(edge.to)]));
    return longest;
}

TEST(Organic, WhatIsFarAlongTheEdgesIsFarOnThePage) {
    const LayoutGraph grid = Grid(8, 5);
    const auto at = Places(grid);
    EXPECT_GT(Apart(at[0], at[39]), 5 * Apart(at[0], at[1]));
    EXPECT_LT(LongestEdge(grid, at), 2 * Apart(at[0], at[1]));
}

TEST(Organic, APartIsWiderThanHighAndItsEdgesLeadRightwards) {
    std::vector<LayoutEdge> edges;
    for (int i = 11; i > 0; --i) edges.push_back({i, i - 1});
    const LayoutGraph chain = Graph(12, edges);
    const auto at = Places(chain);
    const QSizeF size = ExtentOf(chain.sizes, at).size();
    EXPECT_GT(size.width(), 3 * size.height());
    EXPECT_GT(at[0].x(), at[11].x());
}

TEST(Organic, NoBoxOfATreeLiesOnAnothersLine) {
    std::mt19937 random(3);
    LayoutGraph tree = Graph(60, {});
    for (int i = 1; i < 60; ++i) tree.edges.push_back({int(random() % unsigned(i)), i});
    EXPECT_LE(BoxesOnLines(tree, Places(tree)), 2);
}

TEST(Organic, BoxesAreCountedOnTheLinesTheyCover) {
    const LayoutGraph graph = Graph(3, {{0, 2}});
    EXPECT_EQ(BoxesOnLines(graph, {{0, 0}, {5000, 300}, {10000, 0}}), 1);
    EXPECT_EQ(BoxesOnLines(graph, {{0, 0}, {5000, 400}, {10000, 0}}), 0);
    EXPECT_EQ(BoxesOnLines(graph, {{0, 0}, {-5000, 0}, {10000, 0}}), 0);
}

// With more than so many boxes pivots take the place of all pairs.
TEST(Organic, PivotsKeepTheShapeOfALargeGrid) {
    static_assert(52 * 40 > kMostWithoutPivots);
    const LayoutGraph grid = Grid(52, 40);
    const auto at = Places(grid);
    EXPECT_FALSE(AnyTooNear(grid.sizes, at, 100));
    const double corner = Apart(at[0], at[52 * 40 - 1]);
    EXPECT_GT(corner, 30 * LongestEdge(grid, at) / 2);
}

TEST(Organic, LargerBoxesGetLongerEdges) {
    LayoutGraph graph = Graph(7, {{0, 1}, {0, 2}, {0, 3}, {4, 5}, {4, 6}});
    for (const std::size_t large : {0U, 1U, 2U, 3U}) graph.sizes[large] = {6000, 4000};
    const auto at = Places(graph);
    EXPECT_GT(Apart(at[0], at[1]), 2 * Apart(at[4], at[5]));
}

} // namespace
} // namespace diagram
