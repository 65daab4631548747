#include "diagram/layout/Radial.h"
#include "tests/diagram/layout/Graphs.h"

#include <cmath>
#include <gmock/gmock.h>

namespace diagram {
namespace {

using testing::Graph;
using testing::kNobody;

std::vector<QPointF> Places(const LayoutGraph &graph) {
    Progress progress(kNobody);
    return Radial(graph, {}, progress);
}

double Apart(const QPointF &a, const QPointF &b) { return std::hypot(a.x() - b.x(), a.y() - b.y()); }

TEST(Radial, EachBoxStandsOnTheRingOfItsDistanceFromTheSource) {
    const auto at = Places(Graph(7, {{0, 1}, {0, 2}, {1, 3}, {1, 4}, {2, 5}, {2, 6}}));
    const double ring = Apart(at[0], at[1]);
    EXPECT_NEAR(Apart(at[0], at[2]), ring, 1e-6);
    for (const std::size_t leaf : {3U, 4U, 5U, 6U}) EXPECT_NEAR(Apart(at[0], at[leaf]), 2 * ring, 1e-6);
}

TEST(Radial, ChildrenStandOnTheirParentsSide) {
    const auto at = Places(Graph(7, {{0, 1}, {0, 2}, {1, 3}, {1, 4}, {2, 5}, {2, 6}}));
    for (const std::size_t leaf : {3U, 4U}) EXPECT_LT(Apart(at[leaf], at[1]), Apart(at[leaf], at[2]));
    for (const std::size_t leaf : {5U, 6U}) EXPECT_LT(Apart(at[leaf], at[2]), Apart(at[leaf], at[1]));
}

TEST(Radial, OfAChainTheMiddleStandsInTheMiddle) {
    // 0 to 8 in a row: around 0 it would be twice as wide.
    std::vector<LayoutEdge> edges;
    for (int i = 0; i < 8; ++i) edges.push_back({i, i + 1});
    const auto at = Places(Graph(9, edges));
    EXPECT_NEAR(Apart(at[4], at[0]), Apart(at[4], at[8]), 1e-6);
    EXPECT_NEAR(Apart(at[0], at[8]), 2 * Apart(at[4], at[0]), 1e-6);
}

TEST(Radial, ABusyChildGetsMoreOfTheRing) {
    std::vector<LayoutEdge> edges{{0, 1}, {0, 2}, {0, 3}};
    for (int i = 4; i < 14; ++i) edges.push_back({1, i});
    const auto at = Places(Graph(14, edges));
    double spread = 0;
    for (std::size_t i = 4; i < 14; ++i)
        for (std::size_t k = i; k < 14; ++k) spread = std::max(spread, Apart(at[i], at[k]));
    EXPECT_GT(spread, Apart(at[2], at[3]));
}

} // namespace
} // namespace diagram
