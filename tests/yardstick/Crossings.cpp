#include "tests/yardstick/Crossings.h"

#include <algorithm>

namespace yardstick {

namespace {

using diagram::LayoutEdge;

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

} // namespace

int CrossingsOf(const diagram::LayoutGraph &graph, const Ways &ways) {
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

Ways WaysOf(const diagram::LayoutGraph &graph, const diagram::LayeredDrawing &drawing) {
    Ways ways = drawing.bends;
    for (std::size_t i = 0; i < ways.size(); ++i) {
        const LayoutEdge &edge = graph.edges[i];
        ways[i].insert(ways[i].begin(), drawing.centres[std::size_t(edge.from)]);
        ways[i].push_back(drawing.centres[std::size_t(edge.to)]);
        if (edge.from == edge.to) ways[i].clear();
    }
    return ways;
}

} // namespace yardstick
