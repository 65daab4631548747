#include "tests/yardstick/Crossings.h"

#include "diagram/layout/Boxes.h"

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

// Whether a piece comes within a box: what the box leaves of it, side by side.
bool IsIn(const QRectF &box, const QPointF &from, const QPointF &to) {
    double first = 0, last = 1;
    const auto cut = [&](double at, double way, double least, double most) {
        if (way == 0) return least < at && at < most;
        const auto [in, out] = std::minmax({(least - at) / way, (most - at) / way});
        first = std::max(first, in), last = std::min(last, out);
        return first < last - 1e-9;
    };
    return cut(from.x(), to.x() - from.x(), box.left(), box.right()) &&
           cut(from.y(), to.y() - from.y(), box.top(), box.bottom());
}

bool LeadsThrough(const std::vector<QPointF> &route, const QRectF &box) {
    for (std::size_t i = 1; i < route.size(); ++i)
        if (IsIn(box, route[i - 1], route[i])) return true;
    return false;
}

} // namespace

int CrossingsOf(const diagram::LayoutGraph &graph, const Ways &routes) {
    std::vector<Piece> pieces;
    for (std::size_t i = 0; i < routes.size(); ++i)
        for (std::size_t k = 1; k < routes[i].size(); ++k)
            pieces.push_back({routes[i][k - 1], routes[i][k], i});
    std::ranges::sort(pieces, {}, &Piece::Top);
    int crossings = 0;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        for (std::size_t k = i + 1; k < pieces.size() && pieces[k].Top() <= pieces[i].Bottom(); ++k)
            crossings += !Meet(graph.edges[pieces[i].edge], graph.edges[pieces[k].edge]) &&
                         Cross(pieces[i], pieces[k]);
    return crossings;
}

int BendsOf(const Ways &routes) {
    int bends = 0;
    for (const auto &route : routes) bends += int(route.size()) - std::min(2, int(route.size()));
    return bends;
}

int MeetingsOf(const diagram::LayoutGraph &graph, const std::vector<QPointF> &centres, const Ways &routes) {
    int meetings = 0;
    for (std::size_t edge = 0; edge < routes.size(); ++edge)
        for (int box = 0; box < int(centres.size()); ++box)
            meetings += box != graph.edges[edge].from && box != graph.edges[edge].to &&
                        LeadsThrough(routes[edge], diagram::BoxAround(centres[std::size_t(box)],
                                                                      graph.sizes[std::size_t(box)]));
    return meetings;
}

Ways RoutesOf(const diagram::LayoutGraph &graph, const diagram::LayeredDrawing &drawing) {
    Ways routes = drawing.bends;
    for (std::size_t i = 0; i < routes.size(); ++i) {
        const LayoutEdge &edge = graph.edges[i];
        routes[i].insert(routes[i].begin(), drawing.centres[std::size_t(edge.from)]);
        routes[i].push_back(drawing.centres[std::size_t(edge.to)]);
        if (edge.from == edge.to) routes[i].clear();
    }
    return routes;
}

} // namespace yardstick
