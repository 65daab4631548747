#include "diagram/shapes/RouterOrthogonal.h"

#include "diagram/shapes/RouterAvoid.h"
#include "diagram/shapes/RouterLoops.h"

#include <algorithm>

namespace diagram {

namespace {

Coordinates NewCoordinates(const RouteRequest &request, std::string_view directions) {
    if (request.sameNode) return LoopLanes(request, directions);
    const Coordinates lanes = LanesAround(request, directions, ChooseCoordinates(request, directions));
    return request.mostAside == 0 ? lanes : LanesAside(request, directions, lanes);
}

// Two segments can't join every two boxes from outside. A bend inside of one of them is drawn out to where
// the other segment crosses its outline, so that what is left of the route lies outside; the segment in the
// box then has no length.
std::vector<Point> DrawnOut(const RouteRequest &request, std::string_view directions,
                            std::vector<Point> route) {
    const QPointF bend = ToQPointF(route[1]);
    if (request.source.box.contains(bend)) {
        const Point exit = ToPoint(ClipAlong(request.source, AxisOf(directions[1]), ToQPointF(route[2])));
        (IsHorizontal(directions[1]) ? route[1].x : route[1].y) =
            IsHorizontal(directions[1]) ? exit.x : exit.y;
        route[0] = route[1];
    } else if (request.destination.box.contains(bend)) {
        const Point entry =
            ToPoint(ClipAlong(request.destination, AxisOf(directions[0]), ToQPointF(route[0])));
        (IsHorizontal(directions[0]) ? route[1].x : route[1].y) =
            IsHorizontal(directions[0]) ? entry.x : entry.y;
        route[2] = route[1];
    }
    return route;
}

bool ReadsTheSameBackwards(std::string_view directions) {
    return std::equal(directions.begin(), directions.end(), directions.rbegin());
}

// Routed from the other end, like the links that run the other way, so that they lie side by side.
std::vector<Point> RouteBackwards(RouteRequest request, std::string_view directions) {
    std::swap(request.source, request.destination);
    request.aside = -request.aside;
    request.backwards = false;
    std::vector<Point> route = RouteOrthogonal(request, directions);
    std::ranges::reverse(route);
    return route;
}

} // namespace

std::vector<Point> JoinLanes(const RouteRequest &request, std::string_view directions,
                             const Coordinates &lanes) {
    const std::size_t segments = directions.size();
    std::vector<Point> route(segments + 1);
    const auto meet = [&](std::size_t i) { // where segments i - 1 and i meet
        const bool horizontal = IsHorizontal(directions[i]);
        return Point{float(horizontal ? lanes[i - 1] : lanes[i]),
                     float(horizontal ? lanes[i] : lanes[i - 1])};
    };
    for (std::size_t i = 1; i < segments; ++i) route[i] = meet(i);
    const auto clip = [](const RouteEnd &end, char direction, const Point &bend) {
        Point point = ToPoint(ClipAlong(end, AxisOf(direction), ToQPointF(bend)));
        (IsHorizontal(direction) ? point.y : point.x) = IsHorizontal(direction) ? bend.y : bend.x;
        return point;
    };
    route.front() = clip(request.source, directions.front(), route[1]);
    route.back() = clip(request.destination, directions.back(), route[segments - 1]);
    return route;
}

std::vector<Point> RouteOrthogonal(const RouteRequest &request, std::string_view directions) {
    const bool keeps = request.keepBends && request.old.size() == directions.size() + 1;
    if (request.backwards && !keeps && ReadsTheSameBackwards(directions))
        return RouteBackwards(request, directions);
    const Coordinates lanes =
        keeps ? KeptCoordinates(request, directions) : NewCoordinates(request, directions);
    std::vector<Point> route = JoinLanes(request, directions, lanes);
    if (directions.size() == 2 && !request.sameNode) return DrawnOut(request, directions, std::move(route));
    return route;
}

} // namespace diagram
