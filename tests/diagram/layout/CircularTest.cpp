#include "diagram/layout/Circular.h"

#include "diagram/layout/Parts.h"
#include "tests/diagram/layout/Graphs.h"

#include <cmath>
#include <gmock/gmock.h>
#include <numeric>
#include <random>

namespace diagram {
namespace {

using testing::Graph;
using testing::kNobody;

long CrossingsOf(const LayoutGraph &graph) {
    Progress progress(kNobody);
    return CircularCrossings(graph, CircularOrder(graph, progress));
}

// Over all orders; the first box may stay where it is.
long FewestCrossings(const LayoutGraph &graph) {
    std::vector<int> order(graph.sizes.size());
    std::iota(order.begin(), order.end(), 0);
    long fewest = CircularCrossings(graph, order);
    while (std::next_permutation(order.begin() + 1, order.end()))
        fewest = std::min(fewest, CircularCrossings(graph, order));
    return fewest;
}

LayoutGraph RandomPart(unsigned seed, int boxes, int edges) {
    std::mt19937 random(seed);
    LayoutGraph graph = Graph(boxes, {});
    for (int i = 1; i < boxes; ++i) graph.edges.push_back({int(random() % unsigned(i)), i});
    while (int(graph.edges.size()) < edges) {
        const int a = int(random() % unsigned(boxes)), b = int(random() % unsigned(boxes));
        const auto same = [&](const LayoutEdge &e) {
            return (e.from == a && e.to == b) || (e.from == b && e.to == a);
        };
        if (a != b && std::ranges::none_of(graph.edges, same)) graph.edges.push_back({a, b});
    }
    return graph;
}

TEST(Circular, ARingIsDrawnAsARing) {
    // Each box is joined to the one three further: the numbers' order crosses a lot.
    std::vector<LayoutEdge> edges;
    for (int i = 0; i < 10; ++i) edges.push_back({i, (i + 3) % 10});
    const LayoutGraph graph = Graph(10, edges);
    std::vector<int> byNumber(10);
    std::iota(byNumber.begin(), byNumber.end(), 0);
    EXPECT_GT(CircularCrossings(graph, byNumber), 0);
    EXPECT_EQ(CrossingsOf(graph), 0);
}

TEST(Circular, TreesHaveNoCrossings) {
    for (unsigned seed = 0; seed < 20; ++seed) EXPECT_EQ(CrossingsOf(RandomPart(seed, 30, 29)), 0) << seed;
}

TEST(Circular, TheOrderIsHardlyWorseThanTheBestOne) {
    long found = 0, fewest = 0;
    for (unsigned seed = 0; seed < 20; ++seed) {
        const LayoutGraph graph = RandomPart(seed, 8, 15);
        found += CrossingsOf(graph);
        fewest += FewestCrossings(graph);
    }
    EXPECT_GT(fewest, 0);
    EXPECT_LE(double(found), 1.1 * double(fewest));
}

TEST(Circular, TheFirstBoxStandsAtTheTop) {
    Progress progress(kNobody);
    const auto at = Circular(Graph(6, {{0, 1}, {1, 2}, {2, 3}, {3, 4}, {4, 5}, {5, 0}}), {}, progress);
    for (std::size_t i = 1; i < 6; ++i) EXPECT_LT(at[0].y(), at[i].y()) << i;
}

TEST(Circular, ABoxWithASingleNeighbourStandsOutsideInFrontOfIt) {
    Progress progress(kNobody);
    const auto at = Circular(Graph(5, {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {2, 4}}), {}, progress);
    const QPointF middle = (at[0] + at[1] + at[2] + at[3]) / 4;
    const QPointF host = at[2] - middle, guest = at[4] - middle;
    EXPECT_GT(std::hypot(guest.x(), guest.y()), std::hypot(host.x(), host.y()) + 750);
    EXPECT_GT(QPointF::dotProduct(host, guest),
              0.9 * std::hypot(host.x(), host.y()) * std::hypot(guest.x(), guest.y()));
}

TEST(Circular, TheHubOfAStarStandsInTheMiddle) {
    Progress progress(kNobody);
    const auto at = Circular(Graph(6, {{0, 1}, {0, 2}, {3, 0}, {0, 4}, {0, 5}}), {}, progress);
    QPointF middle;
    for (std::size_t i = 1; i < 6; ++i) middle += at[i] / 5;
    EXPECT_LT(std::hypot(at[0].x() - middle.x(), at[0].y() - middle.y()), 1000);
}

} // namespace
} // namespace diagram
