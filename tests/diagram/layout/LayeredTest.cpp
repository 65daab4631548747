#include "diagram/layout/Layered.h"

#include "tests/diagram/layout/LayeredGraphs.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <QRectF>

namespace diagram {
namespace {

using namespace testing;

const LayoutOptions kOptions{LayoutOrientation::Down, 600, 400};

LayeredDrawing Draw(const LayoutGraph &graph, const LayoutOptions &options = kOptions) {
    return DrawInLayers(graph, options, kAlways).value();
}

QRectF BoxOf(const LayoutGraph &graph, const LayeredDrawing &drawing, std::size_t i) {
    const QSizeF &size = graph.sizes[i];
    return {drawing.centres[i] - QPointF(size.width(), size.height()) / 2, size};
}

std::vector<QPointF> RouteOf(const LayoutGraph &graph, const LayeredDrawing &drawing, std::size_t edge) {
    std::vector<QPointF> route{drawing.centres[std::size_t(graph.edges[edge].from)]};
    route.insert(route.end(), drawing.bends[edge].begin(), drawing.bends[edge].end());
    route.push_back(drawing.centres[std::size_t(graph.edges[edge].to)]);
    return route;
}

// Whether part of the line lies inside of the box.
bool Meets(const QRectF &box, const QPointF &from, const QPointF &to) {
    double first = 0, last = 1;
    const auto clip = [&](double start, double step, double low, double high) {
        if (std::abs(step) < 1e-9) return low < start && start < high;
        const auto [near, far] = std::minmax({(low - start) / step, (high - start) / step});
        first = std::max(first, near), last = std::min(last, far);
        return first < last - 1e-9;
    };
    return clip(from.x(), to.x() - from.x(), box.left(), box.right()) &&
           clip(from.y(), to.y() - from.y(), box.top(), box.bottom());
}

void ExpectNoBoxMet(const LayoutGraph &graph, const LayeredDrawing &drawing) {
    for (std::size_t edge = 0; edge < graph.edges.size(); ++edge) {
        const auto route = RouteOf(graph, drawing, edge);
        for (std::size_t box = 0; box < graph.sizes.size(); ++box) {
            if (int(box) == graph.edges[edge].from || int(box) == graph.edges[edge].to) continue;
            for (std::size_t i = 1; i < route.size(); ++i)
                EXPECT_FALSE(Meets(BoxOf(graph, drawing, box), route[i - 1], route[i]))
                    << edge << " in " << box;
        }
    }
}

void ExpectApart(const LayoutGraph &graph, const LayeredDrawing &drawing) {
    for (std::size_t a = 0; a < graph.sizes.size(); ++a)
        for (std::size_t b = 0; b < a; ++b) {
            const QRectF both = BoxOf(graph, drawing, a) & BoxOf(graph, drawing, b);
            EXPECT_TRUE(both.isEmpty()) << a << ", " << b;
        }
}

TEST(Layered, NoneOneAndTwoBoxes) {
    EXPECT_TRUE(Draw(SmallBoxes(0, {})).centres.empty());
    EXPECT_EQ(Draw(SmallBoxes(1, {})).centres.size(), 1U);
    const auto apart = Draw(SmallBoxes(2, {}));
    EXPECT_EQ(apart.centres[0].y(), apart.centres[1].y());
    EXPECT_DOUBLE_EQ(apart.centres[1].x() - apart.centres[0].x(), 1600);
    const auto joined = Draw(SmallBoxes(2, {{1, 0}}));
    EXPECT_DOUBLE_EQ(joined.centres[0].y() - joined.centres[1].y(), 1200);
    EXPECT_DOUBLE_EQ(joined.centres[0].x(), joined.centres[1].x());
    EXPECT_TRUE(joined.bends[0].empty());
}

TEST(Layered, RandomGraphsHaveNoBoxOverAnotherAndNoEdgeThroughOne) {
    for (unsigned seed = 0; seed < 14; ++seed) {
        SCOPED_TRACE(seed);
        const LayoutGraph graph = RandomGraph(seed, 1 + 3 * int(seed), int(3 * seed * (1 + seed % 3) / 2));
        const LayeredDrawing drawing = Draw(graph);
        ASSERT_EQ(drawing.centres.size(), graph.sizes.size());
        ASSERT_EQ(drawing.bends.size(), graph.edges.size());
        ExpectApart(graph, drawing);
        ExpectNoBoxMet(graph, drawing);
    }
}

TEST(Layered, WithoutCyclesEveryEdgeLeadsInTheDirection) {
    for (unsigned seed = 0; seed < 2; ++seed) {
        LayoutGraph graph = RandomGraph(seed, 20, 28);
        std::erase_if(graph.edges, [](const LayoutEdge &edge) { return edge.from == edge.to; });
        for (LayoutEdge &edge : graph.edges)
            if (edge.from > edge.to) std::swap(edge.from, edge.to);
        const auto least = [&](LayoutOrientation orientation, auto &&advance) {
            const auto centres = Draw(graph, {orientation, 600, 400}).centres;
            for (const LayoutEdge &edge : graph.edges)
                EXPECT_GT(advance(centres[std::size_t(edge.to)] - centres[std::size_t(edge.from)]), 0)
                    << seed;
        };
        least(LayoutOrientation::Down, [](const QPointF &way) { return way.y(); });
        least(LayoutOrientation::Up, [](const QPointF &way) { return -way.y(); });
        least(LayoutOrientation::Right, [](const QPointF &way) { return way.x(); });
        least(LayoutOrientation::Left, [](const QPointF &way) { return -way.x(); });
    }
}

TEST(Layered, OfAProcessWithTwoLoopsOnlyTheseLeadBack) {
    const LayoutGraph graph =
        SmallBoxes(8, {{0, 1}, {1, 2}, {2, 3}, {3, 4}, {4, 5}, {5, 6}, {6, 7}, {3, 1}, {6, 2}});
    const auto drawing = Draw(graph);
    for (std::size_t i = 1; i < 8; ++i) EXPECT_GT(drawing.centres[i].y(), drawing.centres[i - 1].y());
    ExpectNoBoxMet(graph, drawing);
    EXPECT_FALSE(drawing.bends[7].empty());
    EXPECT_FALSE(drawing.bends[8].empty());
}

TEST(Layered, ParentsStandOverTheMiddleOfTheirChildren) {
    const auto drawing =
        Draw(SmallBoxes(10, {{0, 1}, {0, 2}, {0, 3}, {1, 4}, {1, 5}, {1, 6}, {3, 7}, {3, 8}, {3, 9}}));
    const auto &at = drawing.centres;
    EXPECT_NEAR(at[1].x(), (at[4].x() + at[6].x()) / 2, 30);
    EXPECT_NEAR(at[3].x(), (at[7].x() + at[9].x()) / 2, 30);
    EXPECT_NEAR(at[0].x(), (at[1].x() + at[3].x()) / 2, 30);
}

TEST(Layered, AChainOfBoxesKeepsOneColumnBesideALongEdge) {
    const auto drawing = Draw(SmallBoxes(6, {{0, 1}, {1, 2}, {2, 3}, {3, 4}, {4, 5}, {5, 1}, {0, 4}}));
    for (std::size_t i = 1; i < 6; ++i) EXPECT_NEAR(drawing.centres[i].x(), drawing.centres[0].x(), 1);
}

TEST(Layered, ATreeStandsAsATreeEitherWayUp) {
    LayoutGraph graph = SmallBoxes(7, {{0, 1}, {0, 2}, {1, 3}, {1, 4}, {1, 5}, {2, 6}});
    const auto down = Draw(graph).centres;
    EXPECT_DOUBLE_EQ(down[1].x(), down[4].x());
    EXPECT_DOUBLE_EQ(down[0].x(), (down[1].x() + down[2].x()) / 2);
    EXPECT_DOUBLE_EQ(down[2].x(), down[6].x());
    for (LayoutEdge &edge : graph.edges) std::swap(edge.from, edge.to);
    const auto up = Draw(graph).centres;
    EXPECT_DOUBLE_EQ(up[0].x(), (up[1].x() + up[2].x()) / 2);
    EXPECT_GT(up[0].y(), up[1].y());
    EXPECT_GT(up[1].y(), up[3].y());
}

TEST(Layered, LabelsOfEdgesBetweenTheSameBoxesLieBesideEachOther) {
    LayoutGraph graph = SmallBoxes(2, {{0, 1}, {1, 0}, {0, 1}});
    graph.labels = {{900, 200}, {1100, 200}, {0, 0}};
    const auto drawing = Draw(graph);
    EXPECT_GE(drawing.bends[1].front().x() - drawing.bends[0].front().x(), 1000);
    EXPECT_GE(drawing.bends[2].front().x() - drawing.bends[1].front().x(), 550);
    EXPECT_GE(drawing.centres[1].y() - drawing.centres[0].y(), 800 + 300);
}

TEST(Layered, ALongEdgePassesAllLayersInOneColumn) {
    const LayoutGraph graph = SmallBoxes(7, {{0, 1}, {1, 2}, {2, 3}, {3, 4}, {4, 5}, {5, 6}, {0, 6}});
    const auto bends = Draw(graph).bends[6];
    ASSERT_GE(bends.size(), 2U);
    for (const QPointF &bend : bends) EXPECT_EQ(bend.x(), bends[0].x());
}

TEST(Layered, EdgesBetweenTheSameBoxesLieBesideEachOther) {
    const LayoutGraph graph = SmallBoxes(4, {{0, 1}, {1, 2}, {2, 3}, {0, 3}, {0, 3}, {3, 0}});
    const auto drawing = Draw(graph);
    EXPECT_NEAR(std::abs(drawing.bends[3][0].x() - drawing.bends[4][0].x()), 180, 1);
    EXPECT_NEAR(std::abs(drawing.bends[4][0].x() - drawing.bends[5].back().x()), 180, 1);
    EXPECT_LT(drawing.bends[4].front().y(), drawing.bends[4].back().y());
    EXPECT_GT(drawing.bends[5].front().y(), drawing.bends[5].back().y());
}

TEST(Layered, ALabelHasRoomBetweenTheLayers) {
    LayoutGraph graph = SmallBoxes(5, {{0, 1}, {0, 2}, {0, 3}, {0, 4}});
    const auto plain = Draw(graph);
    graph.labels.assign(4, QSizeF(2500, 1500));
    const auto labelled = Draw(graph);
    EXPECT_DOUBLE_EQ(plain.centres[1].y() - plain.centres[0].y(), 1200);
    EXPECT_GE(labelled.centres[1].y() - labelled.centres[0].y(), 600 + 1500 + 200);
    // The labels stand about the middles of their edges.
    std::vector<double> middles;
    for (std::size_t i = 1; i < 5; ++i) {
        const auto route = RouteOf(graph, labelled, i - 1);
        const auto at = std::ranges::find_if(route, [&](const QPointF &point) {
            return point.y() > labelled.centres[0].y() + 350 && point.y() < labelled.centres[1].y() - 350;
        });
        middles.push_back(at == route.end() ? (route.front().x() + route.back().x()) / 2 : at->x());
    }
    std::ranges::sort(middles);
    for (std::size_t i = 1; i < middles.size(); ++i) EXPECT_GE(middles[i] - middles[i - 1], 2500);
}

TEST(Layered, UnconnectedPartsArePacked) {
    LayoutGraph graph = SmallBoxes(50, {});
    for (int i = 0; i < 50; i += 2) graph.edges.push_back({i, i + 1});
    const auto drawing = Draw(graph);
    QRectF all;
    for (std::size_t i = 0; i < 50; ++i) all |= BoxOf(graph, drawing, i);
    EXPECT_LT(all.width() / all.height(), 2.5);
    EXPECT_GT(all.width() / all.height(), 0.8);
    ExpectApart(graph, drawing);
}

TEST(Layered, ATitleStaysAboveAllAndAsItWasToWhatIsBesideIt) {
    const LayoutGraph graph = TitledGraph();
    const LayeredDrawing drawing = Draw(graph);
    ExpectApart(graph, drawing);
    EXPECT_EQ(drawing.centres[4] - drawing.centres[3], QPointF(1800, -100));
    for (const std::size_t below : {0U, 1U, 2U, 5U})
        for (const std::size_t title : {3U, 4U})
            EXPECT_GT(BoxOf(graph, drawing, below).top(), BoxOf(graph, drawing, title).bottom()) << below;
}

TEST(Layered, BoxesKeepTheirPresentOrderWhereThatCrossesNothing) {
    LayoutGraph graph = SmallBoxes(4, {{0, 1}, {0, 2}, {0, 3}});
    graph.centres = {{0, 0}, {900, 0}, {100, 0}, {500, 0}};
    const auto at = Draw(graph).centres;
    EXPECT_LT(at[2].x(), at[3].x());
    EXPECT_LT(at[3].x(), at[1].x());
}

TEST(Layered, CornersTurnARightAngleAndMeetNoBox) {
    for (unsigned seed = 0; seed < 3; ++seed) {
        SCOPED_TRACE(seed);
        const LayoutGraph graph = RandomGraph(seed, 12 + 3 * int(seed), 16 + 4 * int(seed));
        LayeredDrawing drawing = Draw(graph);
        for (std::size_t edge = 0; edge < graph.edges.size(); ++edge) {
            const auto &corners = drawing.corners[edge];
            EXPECT_EQ(corners.size() % 2, 0U);
            for (std::size_t i = 1; i < corners.size(); ++i)
                EXPECT_EQ(i % 2 ? corners[i].y() : corners[i].x(),
                          i % 2 ? corners[i - 1].y() : corners[i - 1].x());
            // Upright from within its boxes.
            std::vector<QPointF> &route = drawing.bends[edge] = corners;
            if (corners.empty()) continue;
            route.insert(route.begin(),
                         {corners.front().x(), drawing.centres[std::size_t(graph.edges[edge].from)].y()});
            route.push_back({corners.back().x(), drawing.centres[std::size_t(graph.edges[edge].to)].y()});
            for (std::size_t box = 0; box < graph.sizes.size(); ++box) {
                const QRectF inner = BoxOf(graph, drawing, box);
                const bool isEnd = int(box) == graph.edges[edge].from || int(box) == graph.edges[edge].to;
                for (std::size_t i = 1; i < route.size() && !isEnd; ++i)
                    EXPECT_FALSE(Meets(inner, route[i - 1], route[i])) << edge << " in " << box;
            }
        }
    }
}

TEST(Layered, LevelPiecesDoNotLieOnOneAnother) {
    const LayoutGraph graph = RandomGraph(2, 30, 45);
    const LayeredDrawing drawing = Draw(graph);
    for (std::size_t a = 0; a < graph.edges.size(); ++a)
        for (std::size_t b = 0; b < a; ++b)
            for (std::size_t i = 1; i < drawing.corners[a].size(); i += 2)
                for (std::size_t k = 1; k < drawing.corners[b].size(); k += 2) {
                    const auto &mine = drawing.corners[a], &other = drawing.corners[b];
                    if (std::abs(mine[i].y() - other[k].y()) > 1) continue;
                    const auto [left, right] = std::minmax({mine[i - 1].x(), mine[i].x()});
                    const auto [from, to] = std::minmax({other[k - 1].x(), other[k].x()});
                    EXPECT_TRUE(right < from || to < left) << a << ", " << b;
                }
}

TEST(Layered, TheSameGraphGivesTheSameDrawing) {
    for (unsigned seed = 0; seed < 3; ++seed) {
        const LayoutGraph graph = RandomGraph(seed, 25, 40);
        const auto once = Draw(graph), again = Draw(graph);
        EXPECT_EQ(once.centres, again.centres);
        EXPECT_EQ(once.bends, again.bends);
    }
}

TEST(Layered, TheOrderOfTheEdgesMattersLittle) {
    LayoutGraph graph = RandomGraph(3, 30, 40);
    const auto height = [&] {
        const auto at = Draw(graph).centres;
        const auto [least, most] =
            std::ranges::minmax_element(at, {}, [](const QPointF &p) { return p.y(); });
        return most->y() - least->y();
    };
    const double before = height();
    std::ranges::reverse(graph.edges);
    EXPECT_LT(std::abs(height() - before), before / 2);
    ExpectApart(graph, Draw(graph));
}

TEST(Layered, ADrawingThatIsGivenUpIsNone) {
    const LayoutGraph graph = RandomGraph(1, 900, 1200);
    int asked = 0;
    EXPECT_FALSE(DrawInLayers(graph, kOptions, [&] { return ++asked < 5; }));
    EXPECT_EQ(asked, 5);
}

} // namespace
} // namespace diagram
