// The lanes of one axis are chosen apart from those of the other. At each end the axis either leaves the box
// through an edge (the first segment runs along it), or it starts as a lane through the box (the first
// segment lies across it).
#include "diagram/shapes/RouterLanes.h"

#include <algorithm>

namespace diagram {

namespace {

// The lanes of one axis, in the order of the route.
struct Lanes {
    std::array<double, kMostSegments> at{};
    int count = 0;
    void Add(double lane) { at[std::size_t(count++)] = lane; }
    // `number` lanes that divide the route from `from` to `to` evenly.
    void Divide(double from, double to, int number) {
        for (int i = 1; i <= number; ++i) Add(from + (to - from) * i / (number + 1));
    }
    // `number` lanes evenly spread, the first at `from` and the last at `to`.
    void Stretch(double from, double to, int number) {
        for (int i = 0; i < number; ++i) Add(number == 1 ? from : from + (to - from) * i / (number - 1));
    }
};

bool HasGap(const Span &a, const Span &b) {
    return b.low - a.high >= kSmallestGap || a.low - b.high >= kSmallestGap;
}

// The two edges that face each other over the gap, that of `a` first.
Span Gap(const Span &a, const Span &b) {
    return b.Middle() >= a.Middle() ? Span{a.high, b.low} : Span{a.low, b.high};
}

// A lane that passes both boxes, on the side where the detour is shorter; below or to the right when they are
// equal.
double LaneAround(const Span &a, const Span &b) {
    const double after = std::max(a.high, b.high) + kClearance;
    const double before = std::min(a.low, b.low) - kClearance;
    return (a.low - before) + (b.low - before) < (after - a.high) + (after - b.high) ? before : after;
}

// From an edge of `from` to an edge of `to`.
Lanes EdgeToEdge(const Span &from, const Span &to, int count) {
    Lanes lanes;
    const Span gap = Gap(from, to);
    if (HasGap(from, to)) {
        lanes.Divide(gap.low, gap.high, count);
    } else if (count == 1) {
        lanes.Add(LaneAround(from, to));
    } else {
        const double away = to.Middle() >= from.Middle() ? kClearance : -kClearance;
        lanes.Stretch(gap.low + away, gap.high - away, count);
    }
    return lanes;
}

// A lane through `to` that lies beside `from`, so that a route from an edge of `from` can reach it; the
// middle of `to` if it can be.
double LaneBeside(const Span &from, const Span &to) {
    if (!from.Holds(to.Middle())) return to.Middle();
    const double above = from.low - to.low, below = to.high - from.high;
    if (std::max(above, below) < kSmallestGap) return to.Middle();
    return below >= above ? (from.high + to.high) / 2 : (from.low + to.low) / 2;
}

// From an edge of `from` to a lane through `to`; the last of the lanes is that one.
Lanes EdgeToLane(const Span &from, const Span &to, int count) {
    Lanes lanes;
    const int between = count - 1;
    const double last = between == 0 ? LaneBeside(from, to) : to.Middle();
    if (from.Holds(last)) {
        const bool after = from.high - last <= last - from.low;
        const double first = after ? from.high + kClearance : from.low - kClearance;
        if (between > 0) lanes.Stretch(first, first, between);
    } else {
        const double edge = last > from.high ? from.high : from.low;
        // In the gap between the boxes where there is one, so that no lane runs along the other box.
        lanes.Divide(edge, HasGap(from, to) ? Gap(from, to).high : last, between);
    }
    lanes.Add(last);
    return lanes;
}

Lanes Reversed(Lanes lanes) {
    std::reverse(lanes.at.begin(), lanes.at.begin() + lanes.count);
    return lanes;
}

// From a lane through one box to a lane through the other. With `crossed` the route doubles back over the
// boxes in the other axis, and the lanes between must stay clear of both.
Lanes LaneToLane(const Span &from, const Span &to, int count, bool crossed) {
    Lanes lanes;
    lanes.Add(from.Middle());
    const int between = count - 2;
    if (HasGap(from, to)) {
        lanes.Divide(Gap(from, to).low, Gap(from, to).high, between);
    } else if (crossed) {
        const double around = LaneAround(from, to);
        lanes.Stretch(around, around, between);
    } else {
        lanes.Divide(from.Middle(), to.Middle(), between);
    }
    lanes.Add(to.Middle());
    return lanes;
}

// The lanes of vertical segments (an x each) when `vertical`, else of the horizontal ones, for the whole
// route.
Lanes ChooseLanes(const RouteRequest &request, std::string_view directions, bool vertical) {
    const Span from = SpanOf(request.source.box, vertical), to = SpanOf(request.destination.box, vertical);
    const bool startsAsLane = IsHorizontal(directions.front()) != vertical;
    const bool endsAsLane = IsHorizontal(directions.back()) != vertical;
    const int count = int(std::ranges::count(directions, vertical ? 'V' : 'H'));
    if (startsAsLane && endsAsLane) {
        const bool crossed =
            !HasGap(SpanOf(request.source.box, !vertical), SpanOf(request.destination.box, !vertical));
        return LaneToLane(from, to, count, crossed);
    }
    if (startsAsLane) return Reversed(EdgeToLane(to, from, count));
    if (endsAsLane) return EdgeToLane(from, to, count);
    return EdgeToEdge(from, to, count);
}

// The edge of the box on the way from inside of it to `bend`.
QPointF OnEdge(const QRectF &box, bool level, QPointF bend) {
    if (level) {
        bend.setX(std::clamp(bend.x(), box.left(), box.right()));
    } else {
        bend.setY(std::clamp(bend.y(), box.top(), box.bottom()));
    }
    return bend;
}

} // namespace

Track TrackOf(const RouteRequest &request, std::string_view directions, const Coordinates &lanes) {
    Track track;
    const std::size_t segments = directions.size();
    track.count = segments + 1;
    for (std::size_t i = 1; i < segments; ++i) {
        track.points[i] =
            IsHorizontal(directions[i]) ? QPointF(lanes[i - 1], lanes[i]) : QPointF(lanes[i], lanes[i - 1]);
    }
    track.points[0] = OnEdge(request.source.box, IsHorizontal(directions.front()), track.points[1]);
    track.points[segments] =
        OnEdge(request.destination.box, IsHorizontal(directions.back()), track.points[segments - 1]);
    return track;
}

Coordinates ChooseCoordinates(const RouteRequest &request, std::string_view directions) {
    const Lanes xs = ChooseLanes(request, directions, true), ys = ChooseLanes(request, directions, false);
    Coordinates result{};
    std::size_t x = 0, y = 0;
    for (std::size_t i = 0; i < directions.size(); ++i) {
        result[i] = IsHorizontal(directions[i]) ? ys.at[y++] : xs.at[x++];
    }
    return result;
}

Coordinates KeptCoordinates(const RouteRequest &request, std::string_view directions) {
    Coordinates result{};
    const std::size_t last = directions.size() - 1;
    for (std::size_t i = 0; i <= last; ++i) {
        // The bend of the segment, not its end, which lies on an outline that may have moved.
        const Point &point = request.old[i == 0 ? 1 : i];
        result[i] = IsHorizontal(directions[i]) ? point.y : point.x;
    }
    result[0] = HeldInBox(result[0], SpanOf(request.source.box, !IsHorizontal(directions.front())));
    result[last] = HeldInBox(result[last], SpanOf(request.destination.box, !IsHorizontal(directions.back())));
    return result;
}

} // namespace diagram
