#include "diagram/layout/Lanes.h"

#include "diagram/layout/Rows.h"
#include "tests/diagram/layout/Graphs.h"

#include <gmock/gmock.h>

namespace diagram {
namespace {

using ::testing::ElementsAre;
using testing::kNobody;

LayoutGraph Graph(std::vector<int> lanes, std::vector<LayoutEdge> edges) {
    LayoutGraph graph;
    graph.sizes.assign(lanes.size(), QSizeF(1500, 750));
    for (std::size_t i = 0; i < lanes.size(); ++i) graph.centres.emplace_back(double(i), 0);
    graph.lanes = std::move(lanes);
    graph.edges = std::move(edges);
    return graph;
}

std::vector<QPointF> Places(const LayoutGraph &graph,
                            LayoutOrientation orientation = LayoutOrientation::Down) {
    Progress progress(kNobody);
    return InLanes(graph, {orientation, 600, 300}, progress);
}

TEST(Rows, ABoxStandsBehindAllThatLeadToIt) {
    EXPECT_THAT(RowsAlongEdges(Graph({0, 0, 0, 0}, {{0, 1}, {1, 2}, {0, 3}, {2, 3}})),
                ElementsAre(0, 1, 2, 3));
}
TEST(Rows, ABeginningStandsDirectlyBeforeWhatItLeadsTo) {
    EXPECT_THAT(RowsAlongEdges(Graph({0, 0, 0, 0}, {{0, 1}, {1, 2}, {3, 2}})), ElementsAre(0, 1, 2, 1));
}
TEST(Rows, ALoopIsCutWhereItComesBackToWhatStandsFirst) {
    EXPECT_THAT(RowsAlongEdges(Graph({0, 0, 0}, {{0, 1}, {1, 2}, {2, 0}, {1, 1}})), ElementsAre(0, 1, 2));
}
TEST(Rows, WhatHasNoEdgesHasNoRow) {
    EXPECT_THAT(RowsAlongEdges(Graph({0, 0, 0}, {{0, 2}, {1, 1}})), ElementsAre(0, -1, 1));
}

TEST(InLanes, LanesLieSideBySideInTheirOrderAndLinksLeadDown) {
    const auto at = Places(Graph({1, 0, 1, 2}, {{0, 1}, {1, 2}, {2, 3}}));
    EXPECT_LT(at[1].x(), at[0].x());
    EXPECT_EQ(at[0].x(), at[2].x());
    EXPECT_LT(at[2].x(), at[3].x());
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(at[i + 1].y() - at[i].y(), 750 + 600);
}

TEST(InLanes, WhatHasNoLevelStandsBehindTheLastLane) {
    const auto at = Places(Graph({-1, 0, 1}, {{0, 1}, {1, 2}}));
    EXPECT_GT(at[0].x(), at[2].x());
}

TEST(InLanes, ALaneNobodyStandsInTakesNoRoom) {
    const auto at = Places(Graph({0, 5}, {{0, 1}}));
    EXPECT_EQ(at[1].x() - at[0].x(), 1500 + 600);
}

TEST(InLanes, TheOrientationTurnsLanesAndLinks) {
    const LayoutGraph graph = Graph({0, 1}, {{0, 1}});
    const auto right = Places(graph, LayoutOrientation::Right);
    EXPECT_LT(right[0].x(), right[1].x());
    EXPECT_LT(right[0].y(), right[1].y());
    const auto left = Places(graph, LayoutOrientation::Left);
    EXPECT_GT(left[0].x(), left[1].x());
    EXPECT_LT(left[0].y(), left[1].y());
    const auto up = Places(graph, LayoutOrientation::Up);
    EXPECT_GT(up[0].y(), up[1].y());
    EXPECT_LT(up[0].x(), up[1].x());
}

TEST(InLanes, BoxesOfACellStandWhereTheirNeighboursDo) {
    // 0 and 1 at the two ends; 2 belongs to 1, 3 to 0.
    const auto at = Places(Graph({0, 2, 1, 1}, {{0, 3}, {1, 2}}));
    EXPECT_LT(at[3].x(), at[2].x());
    EXPECT_EQ(at[3].y(), at[2].y());
}

TEST(InLanes, BoxesWithoutLinksFillASquare) {
    const auto at = Places(Graph(std::vector<int>(16, 0), {}));
    double right = 0, bottom = 0;
    for (const QPointF &centre : at)
        right = std::max(right, centre.x()), bottom = std::max(bottom, centre.y());
    EXPECT_EQ(right, 750 + 3 * (1500 + 300));
    EXPECT_EQ(bottom, 375 + 3 * (750 + 600));
}

} // namespace
} // namespace diagram
