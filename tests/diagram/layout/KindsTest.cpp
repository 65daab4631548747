// What all layouts that are pure functions have in common.
#include "diagram/layout/Boxes.h"
#include "diagram/layout/Circular.h"
#include "diagram/layout/Lanes.h"
#include "diagram/layout/Organic.h"
#include "diagram/layout/Radial.h"
#include "tests/diagram/layout/Graphs.h"

#include <cmath>
#include <gmock/gmock.h>
#include <random>

namespace diagram {
namespace {

const LayoutOptions kOptions;
using testing::Graph;
using testing::kNobody;

struct Kind {
    const char *name;
    std::vector<QPointF> (*places)(const LayoutGraph &, const LayoutOptions &, Progress &);
};
constexpr Kind kKinds[] = {
    {"radial", Radial}, {"organic", Organic}, {"circular", Circular}, {"levels", InLanes}};

// Several parts, loops, edges that stand twice and boxes of all sizes.
LayoutGraph RandomGraph(unsigned seed, int boxes, int edges) {
    std::mt19937 random(seed);
    LayoutGraph graph = Graph(boxes, {});
    const auto any = [&] { return int(random() % unsigned(boxes)); };
    for (QSizeF &size : graph.sizes) size = {300 + double(random() % 2400), 200 + double(random() % 1200)};
    for (int i = 0; i < edges; ++i) graph.edges.push_back({any(), any()});
    for (int i = 0; i < boxes; ++i) graph.lanes.push_back(int(random() % 4) - 1);
    return graph;
}

std::vector<QPointF> Places(const Kind &kind, const LayoutGraph &graph,
                            const LayoutOptions &options = kOptions) {
    Progress progress(kNobody);
    return kind.places(graph, options, progress);
}

bool AllAreNumbers(const std::vector<QPointF> &centres) {
    return std::ranges::all_of(
        centres, [](const QPointF &at) { return std::isfinite(at.x()) && std::isfinite(at.y()); });
}

TEST(LayoutKinds, NoneOneAndTwoBoxesAreLaidOut) {
    for (const Kind &kind : kKinds) {
        EXPECT_TRUE(Places(kind, Graph(0, {})).empty()) << kind.name;
        EXPECT_EQ(Places(kind, Graph(1, {})).size(), 1U) << kind.name;
        EXPECT_EQ(Places(kind, Graph(1, {{0, 0}})).size(), 1U) << kind.name;
        for (const auto &edges : {std::vector<LayoutEdge>(), {{0, 1}}, {{1, 0}, {0, 1}, {0, 1}}}) {
            const LayoutGraph two = Graph(2, edges);
            const auto centres = Places(kind, two);
            ASSERT_EQ(centres.size(), 2U) << kind.name;
            EXPECT_FALSE(AnyTooNear(two.sizes, centres, 100)) << kind.name;
        }
    }
}

TEST(LayoutKinds, NoTwoBoxesTouchWhateverTheGraph) {
    for (const Kind &kind : kKinds)
        for (unsigned seed = 0; seed < 24; ++seed) {
            const int boxes = 3 + int(seed * 7 % 70);
            const LayoutGraph graph = RandomGraph(seed, boxes, int(seed % 5) * boxes / 2);
            const auto centres = Places(kind, graph);
            ASSERT_EQ(centres.size(), graph.sizes.size());
            ASSERT_TRUE(AllAreNumbers(centres)) << kind.name << ' ' << seed;
            ASSERT_FALSE(AnyTooNear(graph.sizes, centres, 50)) << kind.name << ' ' << seed;
        }
}

TEST(LayoutKinds, WithoutAnyDistanceNothingOverlapsEither) {
    const LayoutOptions tight{LayoutOrientation::Down, 0, 0};
    for (const Kind &kind : kKinds) {
        const LayoutGraph graph = RandomGraph(3, 30, 40);
        EXPECT_FALSE(AnyTooNear(graph.sizes, Places(kind, graph, tight), 0)) << kind.name;
    }
}

TEST(LayoutKinds, TheSameGraphGivesTheSamePlaces) {
    for (const Kind &kind : kKinds) {
        const LayoutGraph graph = RandomGraph(5, 50, 60);
        EXPECT_EQ(Places(kind, graph), Places(kind, graph)) << kind.name;
    }
}

TEST(LayoutKinds, ProgressNeverRunsBackwardsAndIsToldOften) {
    for (const Kind &kind : kKinds) {
        std::vector<double> told;
        const Advance advance = [&](double done) {
            told.push_back(done);
            return true;
        };
        Progress progress(advance);
        kind.places(RandomGraph(7, 200, 240), kOptions, progress);
        EXPECT_GT(told.size(), 5U) << kind.name;
        EXPECT_TRUE(std::ranges::is_sorted(told)) << kind.name;
        EXPECT_GE(told.front(), 0) << kind.name;
        EXPECT_LE(told.back(), 1) << kind.name;
    }
}

TEST(LayoutKinds, AnyQuestionMayBeTheLast) {
    for (const Kind &kind : kKinds)
        for (const int last : {1, 2, 5}) {
            int asked = 0;
            const Advance advance = [&](double) { return ++asked < last; };
            Progress progress(advance);
            EXPECT_THROW(kind.places(RandomGraph(7, 200, 240), kOptions, progress), Progress::GivenUp)
                << kind.name;
            EXPECT_EQ(asked, last) << kind.name;
        }
}

TEST(LayoutKinds, ManyUnconnectedPartsComeNearThePagesProportions) {
    std::vector<LayoutEdge> edges;
    for (int part = 0; part < 25; ++part)
        edges.push_back({part * 3, part * 3 + 1}), edges.push_back({part * 3, part * 3 + 2});
    const LayoutGraph graph = Graph(75, edges);
    for (const Kind &kind : {kKinds[0], kKinds[1], kKinds[2]}) {
        const QSizeF size = ExtentOf(graph.sizes, Places(kind, graph)).size();
        EXPECT_LT(size.width(), 4 * size.height()) << kind.name;
        EXPECT_LT(size.height(), 2 * size.width()) << kind.name;
    }
}

} // namespace
} // namespace diagram
