#include "diagram/layout/TidyTree.h"

#include "support/Error.h"
#include "tests/Errors.h"

#include <gmock/gmock.h>
#include <QRectF>
#include <random>

namespace diagram {
namespace {

constexpr QSizeF kBox(1000, 600);
const LayoutOptions kOptions{LayoutOrientation::Down, 400, 200};

// A graph of equal boxes that stand in the order of their numbers.
LayoutGraph Graph(int boxes, std::vector<LayoutEdge> edges) {
    LayoutGraph graph;
    for (int i = 0; i < boxes; ++i) {
        graph.sizes.push_back(kBox);
        graph.centres.emplace_back(i, 0);
    }
    graph.edges = std::move(edges);
    return graph;
}

QRectF BoxOf(const LayoutGraph &graph, const std::vector<QPointF> &centres, std::size_t i) {
    const QSizeF &size = graph.sizes[i];
    return {centres[i] - QPointF(size.width(), size.height()) / 2, size};
}

LayoutGraph RandomForest(unsigned seed, int boxes) {
    std::mt19937 random(seed);
    LayoutGraph graph = Graph(boxes, {});
    for (int i = 0; i < boxes; ++i) {
        graph.sizes[std::size_t(i)] = QSizeF(200 + double(random() % 2000), 200 + double(random() % 900));
        if (i > 0 && random() % 12 != 0) graph.edges.push_back({int(random() % unsigned(i)), i});
    }
    return graph;
}

long ErrorOf(const LayoutGraph &graph) {
    return tests::NumberOf([&] { TidyTree(graph, kOptions); });
}

TEST(TidyTree, AParentStandsOverTheMiddleOfItsChildren) {
    const auto centres = TidyTree(Graph(3, {{0, 1}, {0, 2}}), kOptions);
    EXPECT_DOUBLE_EQ(centres[2].x() - centres[1].x(), 1200);
    EXPECT_DOUBLE_EQ(centres[0].x(), (centres[1].x() + centres[2].x()) / 2);
    EXPECT_DOUBLE_EQ(centres[1].y() - centres[0].y(), 1000);
    EXPECT_DOUBLE_EQ(centres[1].y(), centres[2].y());
}

TEST(TidyTree, AWideSubtreePushesItsNeighbourAndSpreadsWhatLiesBetween) {
    // 0 over 1, 2, 3; both 1 and 3 have three children, 2 has none and stands in the middle.
    const auto centres = TidyTree(
        Graph(10, {{0, 1}, {0, 2}, {0, 3}, {1, 4}, {1, 5}, {1, 6}, {3, 7}, {3, 8}, {3, 9}}), kOptions);
    EXPECT_DOUBLE_EQ(centres[7].x() - centres[6].x(), 1200);
    EXPECT_DOUBLE_EQ(centres[2].x(), (centres[1].x() + centres[3].x()) / 2);
    EXPECT_DOUBLE_EQ(centres[0].x(), centres[2].x());
}

TEST(TidyTree, ASubtreeThatReachesUnderItsNeighbourDoesNotTouchIt) {
    // A chain beside a box: the wide bottom of the chain may reach below the box, not into it.
    LayoutGraph graph = Graph(6, {{0, 1}, {0, 2}, {2, 3}, {3, 4}, {3, 5}});
    graph.sizes[4] = graph.sizes[5] = QSizeF(5000, 600);
    const auto centres = TidyTree(graph, kOptions);
    EXPECT_DOUBLE_EQ(centres[2].x() - centres[1].x(), 1200);
    EXPECT_LT(BoxOf(graph, centres, 4).left(), BoxOf(graph, centres, 1).left());
}

TEST(TidyTree, TreesOfAForestStandSideBySideOnOneLine) {
    const auto centres = TidyTree(Graph(4, {{0, 1}, {2, 3}}), kOptions);
    EXPECT_DOUBLE_EQ(centres[0].y(), centres[2].y());
    EXPECT_DOUBLE_EQ(centres[2].x() - centres[0].x(), 1200);
}

TEST(TidyTree, ChildrenKeepTheOrderInWhichTheyStand) {
    LayoutGraph graph = Graph(3, {{0, 1}, {0, 2}});
    graph.centres[1] = {9000, 0};
    const auto centres = TidyTree(graph, kOptions);
    EXPECT_LT(centres[2].x(), centres[1].x());
}

TEST(TidyTree, OrientationsTurnTheSamePicture) {
    LayoutOptions options = kOptions;
    options.orientation = LayoutOrientation::Up;
    auto centres = TidyTree(Graph(2, {{0, 1}}), options);
    EXPECT_DOUBLE_EQ(centres[1].y() - centres[0].y(), -1000);
    options.orientation = LayoutOrientation::Right;
    centres = TidyTree(Graph(2, {{0, 1}}), options);
    EXPECT_DOUBLE_EQ(centres[1].x() - centres[0].x(), 1400);
    EXPECT_DOUBLE_EQ(centres[1].y(), centres[0].y());
    options.orientation = LayoutOrientation::Left;
    centres = TidyTree(Graph(2, {{0, 1}}), options);
    EXPECT_DOUBLE_EQ(centres[1].x() - centres[0].x(), -1400);
}

TEST(TidyTree, NoTwoBoxesOfARandomForestTouchAndParentsAreCentred) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        const LayoutGraph graph = RandomForest(seed, 60);
        const auto centres = TidyTree(graph, kOptions);
        for (std::size_t a = 0; a < centres.size(); ++a)
            for (std::size_t b = a + 1; b < centres.size(); ++b)
                ASSERT_FALSE(BoxOf(graph, centres, a)
                                 .adjusted(0, 0, 199, 0)
                                 .intersects(BoxOf(graph, centres, b).adjusted(0, 0, 199, 0)))
                    << seed << ": " << a << " and " << b;
        for (std::size_t parent = 0; parent < centres.size(); ++parent) {
            double low = 1e18, high = -1e18;
            for (const LayoutEdge &edge : graph.edges) {
                if (std::size_t(edge.from) != parent) continue;
                low = std::min(low, centres[std::size_t(edge.to)].x());
                high = std::max(high, centres[std::size_t(edge.to)].x());
            }
            if (low > high) continue;
            ASSERT_NEAR(centres[parent].x(), (low + high) / 2, 1e-6) << seed;
        }
    }
}

TEST(TidyTree, AChainAsLongAsTheDiagramIsNoTrouble) {
    constexpr int kLength = 100000;
    LayoutGraph graph = Graph(kLength, {});
    for (int i = 1; i < kLength; ++i) graph.edges.push_back({i - 1, i});
    const auto centres = TidyTree(graph, kOptions);
    EXPECT_DOUBLE_EQ(centres.back().y() - centres.front().y(), 1000.0 * (kLength - 1));
}

TEST(TidyTree, WhatIsNoForestIsAnError) {
    EXPECT_EQ(ErrorOf(Graph(3, {{0, 1}, {1, 2}, {2, 0}})), kErrNoForest);
    EXPECT_EQ(ErrorOf(Graph(3, {{0, 2}, {1, 2}})), kErrNoForest);
    EXPECT_EQ(ErrorOf(Graph(1, {{0, 0}})), kErrNoForest);
    EXPECT_EQ(ErrorOf(Graph(2, {{0, 1}, {0, 1}})), 0);
    EXPECT_EQ(ErrorOf(Graph(0, {})), 0);
}

} // namespace
} // namespace diagram
