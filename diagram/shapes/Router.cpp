#include "diagram/shapes/Router.h"

#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/RouterClip.h"
#include "diagram/shapes/RouterLoops.h"
#include "diagram/shapes/RouterOrthogonal.h"
#include "diagram/shapes/RouterPolyline.h"

#include <algorithm>
#include <cmath>

namespace diagram {

namespace {

constexpr double kShortestTangent = 300; // twips
constexpr double kShareForAsides = 0.35; // of a box's shorter side, to either side of its middle

bool HasKeptBends(const RouteRequest &request) { return request.keepBends && request.old.size() > 2; }

// The route between bends that stay: each end is put where the line to its nearest bend leaves the outline.
std::vector<Point> KeepBends(const RouteRequest &request) {
    std::vector<Point> route(request.old.begin(), request.old.end());
    route.front() = ToPoint(ClipTowards(request.source, ToQPointF(route[1])));
    route.back() = ToPoint(ClipTowards(request.destination, ToQPointF(route[route.size() - 2])));
    return route;
}

// The distance aside that fits into both boxes.
double FittingAside(const RouteRequest &request) {
    const QRectF &a = request.source.box, &b = request.destination.box;
    const double room = kShareForAsides * std::min({a.width(), a.height(), b.width(), b.height()});
    return request.aside * std::min(1.0, room / std::max(request.mostAside, 1.0));
}

std::vector<Point> RouteStraight(const RouteRequest &request) {
    if (HasKeptBends(request)) return KeepBends(request);
    if (request.sameNode) return CornerLoop(request);
    const QPointF from = request.source.box.center(), to = request.destination.box.center();
    const double length = std::hypot(to.x() - from.x(), to.y() - from.y());
    if (request.aside == 0 || !(length > 0))
        return {ToPoint(ClipTowards(request.source, to)), ToPoint(ClipTowards(request.destination, from))};
    const QPointF left(to.y() - from.y(), from.x() - to.x());
    const QPointF beside = left * (FittingAside(request) / length);
    return {ToPoint(ClipBeside(request.source, from + beside, to + beside)),
            ToPoint(ClipBeside(request.destination, to + beside, from + beside))};
}

std::vector<Point> RoutePolyline(const RouteRequest &request) {
    if (HasKeptBends(request) || request.sameNode) return RouteStraight(request);
    return RoundObstacles(request, RouteStraight(request));
}

// Drawn out so far that the curve passes the corner of the box.
std::vector<Point> BezierLoop(const RouteRequest &request) {
    const std::vector<Point> loop = CornerLoop(request);
    const auto reach = [&](float out, double size) {
        const double past = size * 2 / 3 + kNearness - out;
        return float(std::max({double(out), past, 0.0}) + 2 * request.aside);
    };
    return {loop[0],
            {loop[1].x + reach(loop[1].x - loop[0].x, request.source.box.width()), loop[1].y},
            {loop[3].x, loop[3].y - reach(loop[4].y - loop[3].y, request.source.box.height())},
            loop[4]};
}

// Leaves and arrives level when the boxes lie more beside than above each other, upright otherwise.
std::vector<Point> RouteBezier(const RouteRequest &request) {
    if (HasKeptBends(request) && request.old.size() == 4) return KeepBends(request);
    if (request.sameNode) return BezierLoop(request);
    const QRectF &from = request.source.box, &to = request.destination.box;
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
    const QPointF beside = QPointF(out.y(), -out.x()) * FittingAside(request);
    const QPointF start = ClipAlong(request.source, axis, from.center() + beside + out * reach);
    const QPointF end = ClipAlong(request.destination, axis, to.center() + beside - out * reach);
    const double gap = std::abs(level ? end.x() - start.x() : end.y() - start.y());
    const QPointF tangent = out * std::max(gap / 2, kShortestTangent);
    return {ToPoint(start), ToPoint(start + tangent), ToPoint(end - tangent), ToPoint(end)};
}

// One bend doesn't bring a route back to where it came from: such a loop takes three.
std::string_view DirectionsOf(const RouteRequest &request, const LinkStyleRow &row) {
    if (!request.sameNode || row.directions.size() != 2) return row.directions;
    return row.directions == "HV" ? "HVHV" : "VHVH";
}

} // namespace

std::vector<Point> FindRoute(const RouteRequest &request) {
    const LinkStyleRow *row = FindLinkStyle(request.style);
    if (!row) return RouteStraight(request);
    if (row->form == LinkForm::Bezier) return RouteBezier(request);
    if (row->form == LinkForm::Orthogonal) return RouteOrthogonal(request, DirectionsOf(request, *row));
    if (row->form == LinkForm::Polyline) return RoutePolyline(request);
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
