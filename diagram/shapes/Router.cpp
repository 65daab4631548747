#include "diagram/shapes/Router.h"

#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/RouterClip.h"
#include "diagram/shapes/RouterOrthogonal.h"

#include <algorithm>
#include <cmath>

namespace diagram {

namespace {

constexpr double kLoopReach = 300;       // twips that a loop stands out of its box
constexpr double kShortestTangent = 300; // twips

bool HasKeptBends(const RouteRequest &request) { return request.keepBends && request.old.size() > 2; }

// The way between bends that stay: each end is put where the line to its nearest bend leaves the outline.
std::vector<Point> KeepBends(const RouteRequest &request) {
    std::vector<Point> way(request.old.begin(), request.old.end());
    way.front() = ToPoint(ClipTowards(request.source, ToQPointF(way[1])));
    way.back() = ToPoint(ClipTowards(request.destination, ToQPointF(way[way.size() - 2])));
    return way;
}

// Out of the right side, over the corner, and into the top.
std::vector<Point> LoopBends(const RouteEnd &end) {
    const QPointF middle = end.box.center();
    const double right = end.box.right() + kLoopReach, top = end.box.top() - kLoopReach;
    return {ToPoint(ClipAlong(end, Axis::Horizontal, {right, middle.y()})), ToPoint({right, middle.y()}),
            ToPoint({right, top}), ToPoint({middle.x(), top}),
            ToPoint(ClipAlong(end, Axis::Vertical, {middle.x(), top}))};
}

std::vector<Point> RouteStraight(const RouteRequest &request) {
    if (HasKeptBends(request)) return KeepBends(request);
    if (request.sameNode) return LoopBends(request.source);
    return {ToPoint(ClipTowards(request.source, request.destination.box.center())),
            ToPoint(ClipTowards(request.destination, request.source.box.center()))};
}

// Leaves and arrives level when the boxes lie more beside than above each other, upright otherwise.
std::vector<Point> RouteBezier(const RouteRequest &request) {
    if (HasKeptBends(request) && request.old.size() == 4) return KeepBends(request);
    const QRectF &from = request.source.box, &to = request.destination.box;
    if (request.sameNode) {
        const std::vector<Point> loop = LoopBends(request.source);
        const float reach = float(kLoopReach);
        return {loop[0], {loop[1].x + reach, loop[1].y}, {loop[3].x, loop[3].y - reach}, loop[4]};
    }
    const QPointF way = to.center() - from.center();
    const double besides = std::abs(way.x()) - (from.width() + to.width()) / 2;
    const double above = std::abs(way.y()) - (from.height() + to.height()) / 2;
    const bool level = besides >= above;
    const double distance = level ? way.x() : way.y();
    const double reach =
        std::max(std::abs(distance), 1.0) + from.width() + from.height() + to.width() + to.height();
    const double sign = distance < 0 ? -1 : 1;
    const QPointF out = (level ? QPointF(1, 0) : QPointF(0, 1)) * sign;
    const Axis axis = level ? Axis::Horizontal : Axis::Vertical;
    const QPointF start = ClipAlong(request.source, axis, from.center() + out * reach);
    const QPointF end = ClipAlong(request.destination, axis, to.center() - out * reach);
    const double gap = std::abs(level ? end.x() - start.x() : end.y() - start.y());
    const QPointF tangent = out * std::max(gap / 2, kShortestTangent);
    return {ToPoint(start), ToPoint(start + tangent), ToPoint(end - tangent), ToPoint(end)};
}

} // namespace

std::vector<Point> Route(const RouteRequest &request) {
    const LinkStyleRow *row = FindLinkStyle(request.style);
    if (!row) return RouteStraight(request);
    if (row->form == LinkForm::Bezier) return RouteBezier(request);
    if (row->form == LinkForm::Orthogonal) return RouteOrthogonal(request, row->directions);
    return RouteStraight(request);
}

std::vector<Point> WithBendMoved(int style, std::vector<Point> points, int position, const Point &point) {
    const LinkStyleRow *row = FindLinkStyle(style);
    const auto at = std::size_t(position);
    points[at] = point;
    if (!row || row->form != LinkForm::Orthogonal || points.size() != row->directions.size() + 1)
        return points;
    const auto follow = [&](std::size_t neighbour, char direction) {
        if (direction == 'H') {
            points[neighbour].y = point.y;
        } else {
            points[neighbour].x = point.x;
        }
    };
    if (at > 0) follow(at - 1, row->directions[at - 1]);
    if (at + 1 < points.size()) follow(at + 1, row->directions[at]);
    return points;
}

} // namespace diagram
