#include "diagram/scene/Crossings.h"

#include "diagram/model/AnyItem.h"
#include "diagram/scene/Bounds.h"

#include <algorithm>
#include <cmath>
#include <QLineF>
#include <QPolygonF>

namespace diagram {

namespace {

// A straight piece of a route. Its end never counts as crossed, as it is the start of the next piece; its
// start counts unless the route begins there.
struct Piece {
    QLineF line;
    bool countsStart;
};

// Where two pieces cross, as a share of the first one; below 0 where they don't.
double CrossingShare(const Piece &one, const Piece &two) {
    const QLineF &first = one.line, &second = two.line;
    const QPointF a = first.p2() - first.p1(), b = second.p2() - second.p1(),
                  apart = second.p1() - first.p1();
    const double turn = a.x() * b.y() - a.y() * b.x();
    if (std::abs(turn) < 1e-9) return -1;
    const double along = (apart.x() * b.y() - apart.y() * b.x()) / turn;
    const double other = (apart.x() * a.y() - apart.y() * a.x()) / turn;
    const auto lies = [](double share, bool countsStart) {
        return (share > 0 || (countsStart && share == 0)) && share < 1;
    };
    return lies(along, one.countsStart) && lies(other, two.countsStart) ? along : -1;
}

// Calls `found` with the share of each crossing of the piece with the route.
template <typename Found>
void Cross(const Piece &piece, const std::vector<QPointF> &route, Found found) {
    for (std::size_t i = 1; i < route.size(); ++i) {
        const double share = CrossingShare(piece, {QLineF(route[i - 1], route[i]), i > 1});
        if (share >= 0) found(share);
    }
}

// Of two links that could both jump the upper one does.
bool JumpsOver(const Link &link, const Link &other) {
    return &link != &other && (other.JumpStyle() == 0 || LiesBelow(&other, &link));
}

// The routes of the links that the link jumps over, as far as they touch the box.
std::vector<std::vector<QPointF>> JumpedOver(const Link &link, const QRectF &box, const ItemsAround &around) {
    std::vector<std::vector<QPointF>> routes;
    around(BoxAround(box.normalized()), [&](const Item &item) {
        const Link *other = item.AsLink();
        if (other && JumpsOver(link, *other)) routes.push_back(RoutePieces(*other));
    });
    return routes;
}

void CrossStraight(const Link &link, const ItemsAround &around, std::vector<Crossing> &crossings) {
    const std::vector<QPointF> route = RoutePieces(link);
    for (std::size_t i = 1; i < route.size(); ++i) {
        const QLineF segment(route[i - 1], route[i]);
        // A bend has no room for a jump.
        for (const auto &other : JumpedOver(link, QRectF(segment.p1(), segment.p2()), around))
            Cross({segment, false}, other, [&](double share) {
                crossings.push_back({int(i) - 1, share * segment.length(), segment.pointAt(share)});
            });
    }
}

void CrossCurve(const Link &link, const ItemsAround &around, std::vector<Crossing> &crossings) {
    const std::vector<QPointF> route = RoutePieces(link);
    const QRectF box = QPolygonF(QList(route.begin(), route.end())).boundingRect();
    for (const auto &other : JumpedOver(link, box, around)) {
        double passed = 0;
        for (std::size_t i = 1; i < route.size(); ++i) {
            const QLineF piece(route[i - 1], route[i]);
            Cross({piece, i > 1}, other, [&](double share) {
                crossings.push_back({0, passed + share * piece.length(), piece.pointAt(share)});
            });
            passed += piece.length();
        }
    }
}

} // namespace

std::vector<Crossing> CrossingsOf(const Link &link, const ItemsAround &around) {
    std::vector<Crossing> crossings;
    if (IsCurved(link))
        CrossCurve(link, around, crossings);
    else
        CrossStraight(link, around, crossings);
    std::ranges::sort(crossings, [](const Crossing &a, const Crossing &b) {
        return std::pair(a.segment, a.along) < std::pair(b.segment, b.along);
    });
    return crossings;
}

} // namespace diagram
