// The first three steps of the layered layout, each by itself.
#include "diagram/layout/LayeredCycles.h"
#include "diagram/layout/LayeredOrder.h"
#include "diagram/layout/LayeredRanks.h"
#include "tests/diagram/layout/LayeredGraphs.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <limits>

namespace diagram {
namespace {

using namespace testing;

TEST(LayeredCycles, HoweverEdgesAreChosenNoneClosesACycle) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        const LayoutGraph graph = RandomGraph(seed, 25, 70);
        for (const auto how : {CycleBreaking::FromSources, CycleBreaking::FromFirst, CycleBreaking::Greedy}) {
            const auto back = BackEdges(25, graph.edges, how);
            std::vector<int> level(25);
            bool rises = true;
            for (int round = 0; rises && round <= 25; ++round) {
                rises = false;
                for (std::size_t i = 0; i < graph.edges.size(); ++i) {
                    auto [from, to] = graph.edges[i];
                    if (from == to) continue;
                    if (back[i]) std::swap(from, to);
                    if (level[std::size_t(to)] > level[std::size_t(from)]) continue;
                    level[std::size_t(to)] = level[std::size_t(from)] + 1;
                    rises = true;
                }
            }
            EXPECT_FALSE(rises) << seed;
        }
    }
}

TEST(LayeredCycles, WhatHasNoCycleStaysAsItIs) {
    LayoutGraph graph = RandomGraph(4, 25, 70);
    for (LayoutEdge &edge : graph.edges)
        if (edge.from > edge.to) std::swap(edge.from, edge.to);
    for (const auto how : {CycleBreaking::FromSources, CycleBreaking::FromFirst, CycleBreaking::Greedy})
        EXPECT_THAT(BackEdges(25, graph.edges, how), ::testing::Each(char(0)));
}

// Against a search over all layerings of small graphs.
TEST(LayeredRanks, NoOtherLayeringSpansLess) {
    for (unsigned seed = 0; seed < 12; ++seed) {
        std::mt19937 random(seed);
        constexpr int kBoxes = 5;
        std::vector<RankEdge> edges;
        for (int i = 1; i < kBoxes; ++i) edges.push_back({int(random() % unsigned(i)), i, 1, 1});
        for (int i = 0; i < 4; ++i) {
            const int from = int(random() % (kBoxes - 1));
            edges.push_back({from, from + 1 + int(random() % unsigned(kBoxes - 1 - from)),
                             1 + int(random() % 2), 1 + int(random() % 3)});
        }
        const auto cost = [&](const std::vector<int> &ranks) {
            int sum = 0;
            for (const RankEdge &edge : edges) {
                const int span = ranks[std::size_t(edge.to)] - ranks[std::size_t(edge.from)];
                if (span < edge.length) return std::numeric_limits<int>::max();
                sum += span * edge.weight;
            }
            return sum;
        };
        int least = std::numeric_limits<int>::max();
        constexpr int kLevels = 7;
        for (int code = 0; code < 7 * 7 * 7 * 7 * 7; ++code) {
            std::vector<int> ranks;
            for (int rest = code, i = 0; i < kBoxes; ++i, rest /= kLevels) ranks.push_back(rest % kLevels);
            least = std::min(least, cost(ranks));
        }
        Patience patience(kAlways);
        for (const bool balanced : {false, true}) {
            const auto ranks = RankBoxes(kBoxes, edges, balanced, patience);
            EXPECT_EQ(cost(ranks), least) << seed;
            EXPECT_EQ(*std::ranges::min_element(ranks), 0);
        }
    }
}

long long CountedOneByOne(const LayerGraph &graph) {
    std::vector<int> position(graph.vertices.size());
    for (const auto &layer : graph.layers)
        for (std::size_t i = 0; i < layer.size(); ++i) position[std::size_t(layer[i])] = int(i);
    const auto at = [&](int vertex) { return position[std::size_t(vertex)]; };
    long long crossings = 0;
    for (const LayerEdge &a : graph.edges)
        for (const LayerEdge &b : graph.edges)
            crossings +=
                graph.vertices[std::size_t(a.from)].layer == graph.vertices[std::size_t(b.from)].layer &&
                at(a.from) < at(b.from) && at(a.to) > at(b.to);
    return crossings;
}

LayerGraph RandomLayers(unsigned seed) {
    std::mt19937 random(seed);
    LayerGraph graph;
    graph.layers.resize(4);
    for (int i = 0; i < 32; ++i) {
        graph.vertices.push_back({100, 100, double(random() % 1000), i / 8, false});
        graph.layers[std::size_t(i / 8)].push_back(i);
    }
    for (int i = 0; i < 60; ++i) {
        const int layer = int(random() % 3);
        graph.edges.push_back({layer * 8 + int(random() % 8), layer * 8 + 8 + int(random() % 8)});
    }
    return graph;
}

TEST(LayeredOrder, CrossingsAreCountedAsOneByOne) {
    for (unsigned seed = 0; seed < 30; ++seed) {
        const LayerGraph graph = RandomLayers(seed);
        EXPECT_EQ(CountCrossings(graph), CountedOneByOne(graph));
    }
}

TEST(LayeredOrder, LayersKeepTheirVerticesAndCrossLess) {
    Patience patience(kAlways);
    for (unsigned seed = 0; seed < 8; ++seed) {
        LayerGraph graph = RandomLayers(seed);
        const LayerGraph before = graph;
        OrderLayers(graph, patience);
        EXPECT_LT(CountCrossings(graph), CountCrossings(before));
        for (std::size_t i = 0; i < before.layers.size(); ++i)
            EXPECT_TRUE(std::ranges::is_permutation(graph.layers[i], before.layers[i]));
    }
}

TEST(LayeredOrder, WhatCanBeDrawnWithoutCrossingsIs) {
    Patience patience(kAlways);
    for (unsigned seed = 0; seed < 20; ++seed) {
        // A tree of three levels, its vertices in any order.
        std::mt19937 random(seed);
        LayerGraph graph;
        graph.layers.resize(3);
        for (int i = 0; i < 40; ++i) {
            const int layer = i == 0 ? 0 : i < 8 ? 1 : 2;
            graph.vertices.push_back({100, 100, double(random() % 1000), layer, false});
            graph.layers[std::size_t(layer)].push_back(i);
            if (i > 0) graph.edges.push_back({i < 8 ? 0 : 1 + int(random() % 7), i});
        }
        OrderLayers(graph, patience);
        EXPECT_EQ(CountCrossings(graph), 0) << seed;
    }
}

} // namespace
} // namespace diagram
