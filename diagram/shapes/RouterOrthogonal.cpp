// Each segment has one free number, its lane: the x of a vertical one, the y of a horizontal one. Choosing
// the lanes is all; the bends are where neighbouring lanes meet, and the ends are where the first and the
// last lane meet the outlines.
//
// The lanes of one axis are chosen apart from those of the other. At each end the axis either leaves the box
// through an edge (the first segment runs along it), or it starts as a lane through the box (the first
// segment lies across it).
#include "diagram/shapes/RouterOrthogonal.h"

#include "diagram/shapes/RouterClip.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace diagram {

namespace {

constexpr double kClearance = 240;  // twips between a box and a lane that goes round it
constexpr double kSmallestGap = 60; // twips; boxes closer than that aren't parted by a lane between them
constexpr std::size_t kMostSegments = 7;

struct Span {
    double low, high;
    double Middle() const { return (low + high) / 2; }
    bool Holds(double value) const { return value >= low && value <= high; }
};

Span SpanOf(const QRectF &box, bool horizontal) {
    return horizontal ? Span{box.left(), box.right()} : Span{box.top(), box.bottom()};
}

bool IsHorizontal(char direction) { return direction == 'H'; }
Axis AxisOf(char direction) { return IsHorizontal(direction) ? Axis::Horizontal : Axis::Vertical; }

// The lanes of one axis, in the order of the way.
struct Lanes {
    std::array<double, kMostSegments> at{};
    int count = 0;
    void Add(double lane) { at[std::size_t(count++)] = lane; }
    // `number` lanes that divide the way from `from` to `to` evenly.
    void Divide(double from, double to, int number) {
        for (int i = 1; i <= number; ++i) Add(from + (to - from) * i / (number + 1));
    }
    // The same with the first at `from` and the last at `to`.
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

// A lane through `to` that lies beside `from`, so that a way from an edge of `from` can reach it; the middle
// of `to` if it can be.
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

// From a lane through one box to a lane through the other. With `crossed` the way doubles back over the boxes
// in the other axis, and the lanes between must stay clear of both.
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

using Coordinates = std::array<double, kMostSegments>;

// The lanes of vertical segments (an x each) when `vertical`, else of the horizontal ones, for the whole way.
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

Coordinates ChooseCoordinates(const RouteRequest &request, std::string_view directions) {
    const Lanes xs = ChooseLanes(request, directions, true), ys = ChooseLanes(request, directions, false);
    Coordinates result{};
    std::size_t x = 0, y = 0;
    for (std::size_t i = 0; i < directions.size(); ++i) {
        result[i] = IsHorizontal(directions[i]) ? ys.at[y++] : xs.at[x++];
    }
    return result;
}

// Round the box, turn by turn: from the middle of one side to the next side that the directions end on.
Coordinates LoopCoordinates(const QRectF &box, std::string_view directions) {
    const bool first = IsHorizontal(directions.front());
    const Span along = SpanOf(box, first), across = SpanOf(box, !first);
    const double turn =
        first ? kClearance : -kClearance; // a way that starts upwards turns right, one to the right turns up
    const double out = first ? along.high + turn : along.low + turn;
    const double back = first ? along.low - turn : along.high - turn;
    const double right = first ? across.low - kClearance : across.high + kClearance;
    const double left = first ? across.high + kClearance : across.low - kClearance;
    const Coordinates spiral{across.Middle(), out, right, back, left, out + turn, 0};
    Coordinates result = spiral;
    const std::size_t last = directions.size() - 1;
    const bool sameAxis = IsHorizontal(directions[last]) == first;
    result[last] = sameAxis ? across.Middle() : along.Middle();
    if (last % 4 == 2) { // it comes back to the side where it left
        const double apart = (across.high - across.low) / 4;
        result[0] -= apart;
        result[last] += apart;
    }
    return result;
}

// The lane of an end segment: where it was, as far as it still goes through the box.
double KeepInBox(double lane, const Span &box) {
    const double inset = std::min(kSmallestGap, (box.high - box.low) / 4);
    return std::clamp(lane, box.low + inset, box.high - inset);
}

Coordinates KeptCoordinates(const RouteRequest &request, std::string_view directions) {
    Coordinates result{};
    const std::size_t last = directions.size() - 1;
    for (std::size_t i = 0; i <= last; ++i) {
        // The bend of the segment, not its end, which lies on an outline that may have moved.
        const Point &point = request.old[i == 0 ? 1 : i];
        result[i] = IsHorizontal(directions[i]) ? point.y : point.x;
    }
    result[0] = KeepInBox(result[0], SpanOf(request.source.box, !IsHorizontal(directions.front())));
    result[last] = KeepInBox(result[last], SpanOf(request.destination.box, !IsHorizontal(directions.back())));
    return result;
}

std::vector<Point> JoinLanes(const RouteRequest &request, std::string_view directions,
                             const Coordinates &lanes) {
    const std::size_t segments = directions.size();
    std::vector<Point> way(segments + 1);
    const auto meet = [&](std::size_t i) { // where segments i - 1 and i meet
        const bool horizontal = IsHorizontal(directions[i]);
        return Point{float(horizontal ? lanes[i - 1] : lanes[i]),
                     float(horizontal ? lanes[i] : lanes[i - 1])};
    };
    for (std::size_t i = 1; i < segments; ++i) way[i] = meet(i);
    const auto clip = [](const RouteEnd &end, char direction, const Point &bend) {
        Point point = ToPoint(ClipAlong(end, AxisOf(direction), ToQPointF(bend)));
        (IsHorizontal(direction) ? point.y : point.x) = IsHorizontal(direction) ? bend.y : bend.x;
        return point;
    };
    way.front() = clip(request.source, directions.front(), way[1]);
    way.back() = clip(request.destination, directions.back(), way[segments - 1]);
    return way;
}

// Two segments can't join every two boxes from outside. A bend inside of one of them is drawn out to where
// the other segment crosses its outline, so that what is left of the way lies outside; the segment in the box
// then has no length.
std::vector<Point> DrawnOut(const RouteRequest &request, std::string_view directions,
                            std::vector<Point> way) {
    const QPointF bend = ToQPointF(way[1]);
    if (request.source.box.contains(bend)) {
        const Point exit = ToPoint(ClipAlong(request.source, AxisOf(directions[1]), ToQPointF(way[2])));
        (IsHorizontal(directions[1]) ? way[1].x : way[1].y) = IsHorizontal(directions[1]) ? exit.x : exit.y;
        way[0] = way[1];
    } else if (request.destination.box.contains(bend)) {
        const Point entry = ToPoint(ClipAlong(request.destination, AxisOf(directions[0]), ToQPointF(way[0])));
        (IsHorizontal(directions[0]) ? way[1].x : way[1].y) = IsHorizontal(directions[0]) ? entry.x : entry.y;
        way[2] = way[1];
    }
    return way;
}

} // namespace

std::vector<Point> RouteOrthogonal(const RouteRequest &request, std::string_view directions) {
    const bool keeps = request.keepBends && request.old.size() == directions.size() + 1;
    const Coordinates lanes = keeps              ? KeptCoordinates(request, directions)
                              : request.sameNode ? LoopCoordinates(request.source.box, directions)
                                                 : ChooseCoordinates(request, directions);
    std::vector<Point> way = JoinLanes(request, directions, lanes);
    if (directions.size() == 2 && !request.sameNode) return DrawnOut(request, directions, std::move(way));
    return way;
}

} // namespace diagram
