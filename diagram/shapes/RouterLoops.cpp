#include "diagram/shapes/RouterLoops.h"

#include "diagram/shapes/RouterAvoid.h"

namespace diagram {

namespace {

constexpr double kLoopReach = 300; // twips that a loop stands out of its box

// How far an end of this loop lies from that of the innermost one, so that all loops of the node fit into
// `room`.
double Shift(const RouteRequest &request, double room) {
    if (request.mostAside <= 0) return 0;
    return request.aside * std::min(1.0, std::max(room, 0.0) / request.mostAside);
}

// Which way round: where the loop leaves the box, and to which side it turns then; 1 to higher coordinates.
struct Turn {
    int out, side;
};

double Edge(const Span &span, int direction) { return direction > 0 ? span.high : span.low; }

Coordinates Spiral(const RouteRequest &request, std::string_view directions, const Turn &turn) {
    const QRectF &box = request.source.box;
    const bool first = IsHorizontal(directions.front());
    const Span along = SpanOf(box, first), across = SpanOf(box, !first);
    const double reach = kClearance + request.aside;
    const double out = Edge(along, turn.out) + turn.out * reach;
    const double back = Edge(along, -turn.out) - turn.out * reach;
    const double beside = Edge(across, turn.side) + turn.side * reach;
    const double beyond = Edge(across, -turn.side) - turn.side * reach;
    const double outer = out + turn.out * (kClearance + request.mostAside);
    const double acrossShift = turn.side * Shift(request, (across.high - across.low) / 4 - kSmallestGap);
    const double alongShift = turn.out * Shift(request, (along.high - along.low) / 4 - kSmallestGap);
    Coordinates result{across.Middle() - acrossShift, out, beside, back, beyond, outer, 0};
    const std::size_t last = directions.size() - 1;
    const bool sameAxis = IsHorizontal(directions[last]) == first;
    result[last] = sameAxis ? across.Middle() - acrossShift : along.Middle() - alongShift;
    if (last % 4 == 2) { // it comes back to the side where it left
        const double apart = turn.side * (across.high - across.low) / 4 + acrossShift;
        result[0] = across.Middle() + apart;
        result[last] = across.Middle() - apart;
    }
    return result;
}

} // namespace

std::vector<Point> CornerLoop(const RouteRequest &request) {
    const RouteEnd &end = request.source;
    const QPointF middle = end.box.center();
    const double y = middle.y() + Shift(request, end.box.height() / 2 - kSmallestGap);
    const double x = middle.x() - Shift(request, end.box.width() / 2 - kSmallestGap);
    const double right = end.box.right() + kLoopReach + request.aside;
    const double top = end.box.top() - kLoopReach - request.aside;
    return {ToPoint(ClipAlong(end, Axis::Horizontal, {right, y})), ToPoint({right, y}), ToPoint({right, top}),
            ToPoint({x, top}), ToPoint(ClipAlong(end, Axis::Vertical, {x, top}))};
}

Coordinates LoopLanes(const RouteRequest &request, std::string_view directions) {
    // A route that starts upwards turns right, one to the right turns up, where nothing speaks against it.
    const int out = IsHorizontal(directions.front()) ? 1 : -1;
    Coordinates best{};
    std::size_t fewest = SIZE_MAX;
    for (const Turn &turn : {Turn{out, -out}, Turn{out, out}, Turn{-out, -out}, Turn{-out, out}}) {
        const Coordinates lanes = Spiral(request, directions, turn);
        const std::size_t met = CountMet(request, TrackOf(request, directions, lanes), kNearness);
        if (met < fewest) best = lanes, fewest = met;
        if (met == 0) break;
    }
    return best;
}

} // namespace diagram
