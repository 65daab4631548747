#include "benchmarks/LayoutCrossings.h"

#include "benchmarks/RawDot.h"
#include "diagram/layout/Layered.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace bench {

namespace {

using diagram::LayoutEdge;
using diagram::LayoutGraph;
using Ways = std::vector<std::vector<QPointF>>;

struct Piece {
    QPointF from, to;
    std::size_t edge;
    double Top() const { return std::min(from.y(), to.y()); }
    double Bottom() const { return std::max(from.y(), to.y()); }
};

double Turn(const QPointF &a, const QPointF &b, const QPointF &c) {
    return (b.x() - a.x()) * (c.y() - a.y()) - (b.y() - a.y()) * (c.x() - a.x());
}

bool Cross(const Piece &a, const Piece &b) {
    return (Turn(a.from, a.to, b.from) > 0) != (Turn(a.from, a.to, b.to) > 0) &&
           (Turn(b.from, b.to, a.from) > 0) != (Turn(b.from, b.to, a.to) > 0);
}

bool Meet(const LayoutEdge &a, const LayoutEdge &b) {
    return a.from == b.from || a.from == b.to || a.to == b.from || a.to == b.to;
}

// Of links without a common node.
int CrossingsOf(const LayoutGraph &graph, const Ways &ways) {
    std::vector<Piece> pieces;
    for (std::size_t i = 0; i < ways.size(); ++i)
        for (std::size_t k = 1; k < ways[i].size(); ++k) pieces.push_back({ways[i][k - 1], ways[i][k], i});
    std::ranges::sort(pieces, {}, &Piece::Top);
    int crossings = 0;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        for (std::size_t k = i + 1; k < pieces.size() && pieces[k].Top() <= pieces[i].Bottom(); ++k)
            crossings += !Meet(graph.edges[pieces[i].edge], graph.edges[pieces[k].edge]) &&
                         Cross(pieces[i], pieces[k]);
    return crossings;
}

Ways OurWays(const LayoutGraph &graph, const diagram::LayoutOptions &options) {
    const auto drawing = DrawInLayers(graph, options, [] { return true; });
    Ways ways = drawing->bends;
    for (std::size_t i = 0; i < ways.size(); ++i) {
        const LayoutEdge &edge = graph.edges[i];
        ways[i].insert(ways[i].begin(), drawing->centres[std::size_t(edge.from)]);
        ways[i].push_back(drawing->centres[std::size_t(edge.to)]);
        if (edge.from == edge.to) ways[i].clear();
    }
    return ways;
}

// Boxes of several sizes; links to boxes at most `reach` further on, one in twelve of them backwards.
LayoutGraph Generated(unsigned seed, int boxes, int links, int reach) {
    std::mt19937 random(seed);
    LayoutGraph graph;
    for (int i = 0; i < boxes; ++i) {
        graph.sizes.emplace_back(600 + random() % 1500, 400 + random() % 600);
        graph.centres.emplace_back(0, 0);
    }
    for (int i = 0; i < links; ++i) {
        int from = int(random() % unsigned(boxes)), to = from + 1 + int(random() % unsigned(reach));
        if (to >= boxes) continue;
        if (random() % 12 == 0) std::swap(from, to);
        graph.edges.push_back({from, to});
    }
    return graph;
}

struct Kind {
    int boxes, links, reach;
};
constexpr Kind kKinds[] = {{20, 30, 6},    {20, 26, 19},   {40, 52, 39},   {50, 80, 8},
                           {100, 130, 99}, {200, 300, 10}, {200, 259, 199}};
constexpr unsigned kGraphsOfKind = 6;

} // namespace

Figures LayoutCrossings() {
    double logs = 0, worst = 0;
    int graphs = 0;
    for (const Kind &kind : kKinds)
        for (unsigned seed = 1; seed <= kGraphsOfKind; ++seed, ++graphs) {
            const LayoutGraph graph = Generated(seed, kind.boxes, kind.links, kind.reach);
            const int ours = CrossingsOf(graph, OurWays(graph, {}));
            const int dots = CrossingsOf(graph, DotWays(graph, {}));
            const double ratio = (ours + 1.0) / (dots + 1.0);
            logs += std::log(ratio), worst = std::max(worst, ratio);
        }
    const QString remark =
        QStringLiteral("%1 graphs of 20 to 200 nodes, one crossing added to both").arg(graphs);
    return {
        {QStringLiteral("crossings in layers : dot's, geometric mean"), std::exp(logs / graphs),
         QStringLiteral("x"), 1.0, remark},
        {QStringLiteral("crossings in layers : dot's, at worst"), worst, QStringLiteral("x"), 1.2, remark}};
}

} // namespace bench
