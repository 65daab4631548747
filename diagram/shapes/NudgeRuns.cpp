#include "diagram/shapes/NudgeRuns.h"

#include "diagram/shapes/LinkStyles.h"

#include <cmath>

namespace diagram {

namespace {

constexpr double kReach = 900; // twips that a run is moved at most at once
constexpr double kClear = 120; // twips that it keeps from boxes while it is moved
constexpr double kSameEnd = 8; // twips; routes that turn that near to each other turn together
constexpr double kNoRun = 0.5; // twips; nobody sees a shorter one
constexpr int kFarthest = 8;   // runs after which nobody sees that two routes part

// Whether an end of the route may lie within a box, so that it can't be moved along a side.
bool HasInnerEnds(const NudgedLink &link, const std::vector<QPointF> &points) {
    const auto isShort = [](const QPointF &a, const QPointF &b) {
        return std::abs(a.x() - b.x()) + std::abs(a.y() - b.y()) < kNoRun;
    };
    return Overlap(link.request.source.box, link.request.destination.box) || isShort(points[0], points[1]) ||
           isShort(points[points.size() - 2], points.back());
}

std::vector<QPointF> PointsOf(const NudgedLink &link) {
    std::vector<QPointF> points;
    for (const Point &point : link.request.old) points.push_back(ToQPointF(point));
    return points;
}

std::vector<QPointF> PointsOf(const NudgedLink &link, const NudgedRoute &route) {
    if (route.directions.empty()) return PointsOf(link);
    const Track track = TrackOf(link.request, route.directions, route.lanes);
    return {track.points.begin(), track.points.begin() + std::ptrdiff_t(track.count)};
}

double Along(const QPointF &point, bool level) { return level ? point.x() : point.y(); }
double Across(const QPointF &point, bool level) { return level ? point.y() : point.x(); }

// Goes on with the last run, or begins one.
void AddSegment(std::size_t segment, const QPointF &from, const QPointF &to, std::vector<Run> &runs) {
    const QPointF way = to - from;
    if (std::max(std::abs(way.x()), std::abs(way.y())) < kNoRun) return;
    const bool level = std::abs(way.x()) > std::abs(way.y());
    if (std::abs(Across(way, level)) > kNoRun) return; // aslant
    Run *before = runs.empty() ? nullptr : &runs.back();
    if (before && before->level == level && before->Heading() == (Along(way, level) < 0 ? -1 : 1) &&
        std::abs(before->at - Across(from, level)) < kNoRun &&
        std::abs(before->to - Along(from, level)) < kNoRun) {
        before->to = Along(to, level), before->last = segment;
        return;
    }
    Run run;
    run.first = run.last = segment;
    run.level = level, run.at = Across(from, level);
    run.from = Along(from, level), run.to = Along(to, level);
    runs.push_back(run);
}

// How near runs that don't end at this node may come to it.
double Clearance(const RouteEnd &end) { return std::max(kClear, end.head > 0 ? end.head + kHeadRoom : 0); }

// The room that is left beside a box.
void Limit(const QRectF &box, const Run &run, double clearance, Span &room) {
    if (!(box.width() > 0 && box.height() > 0)) return;
    const Span along = SpanOf(box, run.level), across = SpanOf(box, !run.level);
    if (along.high <= run.Low() - kNearness || along.low >= run.High() + kNearness) return;
    if (across.low >= run.at) room.high = std::min(room.high, std::max(run.at, across.low - clearance));
    if (across.high <= run.at) room.low = std::max(room.low, std::min(run.at, across.high + clearance));
}

// Where ends may lie on a side. Outlines that aren't straight have their best places around the middle.
Span SideOf(const RouteEnd &end, bool level) {
    const Span side = SpanOf(end.box, !level);
    const Span whole = LanesThrough(side);
    if (end.shape == 1) return whole;
    const double quarter = (side.high - side.low) / 4;
    return {std::max(whole.low, side.Middle() - quarter), std::min(whole.high, side.Middle() + quarter)};
}

void Intersect(const Span &other, Span &room) {
    room.low = std::max(room.low, other.low), room.high = std::min(room.high, other.high);
}

// Walks along a route from one of its runs on; both directions of the route can be walked.
class Walker {
public:
    Walker(const NudgedRoute &route, const Run &run, bool toHigher)
        : route_(route), at_(int(run.place)), step_((run.Heading() > 0) == toHigher ? 1 : -1) {}

    const Run &Now() const { return route_.runs[std::size_t(at_)]; }
    int Heading() const { return Now().Heading() * step_; }
    // Grows in the direction of walking.
    double End() const { return (step_ > 0 ? Now().to : Now().from) * Heading(); }
    // 1 to the right, -1 to the left, 0 where the route ends.
    int Turn() const {
        const int next = at_ + step_;
        if (next < 0 || next >= int(route_.runs.size())) return 0;
        const Run &run = route_.runs[std::size_t(next)];
        if (run.level == Now().level) return 0;
        const int side = Heading() * run.Heading() * step_;
        return Now().level ? side : -side;
    }
    void GoOn() { at_ += step_; }

private:
    const NudgedRoute &route_;
    int at_, step_;
};

// 1 when the first turns off so that it should lie to the right of the other.
int Parting(Walker one, Walker other) {
    for (int i = 0; i < kFarthest; ++i) {
        const int turn = one.Turn(), otherTurn = other.Turn();
        if (one.End() < other.End() - kSameEnd) return turn;
        if (other.End() < one.End() - kSameEnd) return -otherTurn;
        if (turn == 0 || otherTurn == 0) return 0;
        if (turn != otherTurn) return turn;
        one.GoOn(), other.GoOn();
        if (one.Heading() != other.Heading()) return 0;
    }
    return 0;
}

} // namespace

NudgedRoute WorkOn(const NudgedLink &link) {
    NudgedRoute route;
    const LinkStyleRow *row = FindLinkStyle(link.request.style);
    const std::vector<QPointF> points = PointsOf(link);
    if (link.stays || !row || row->directions.size() + 1 != points.size() || link.request.sameNode ||
        HasInnerEnds(link, points))
        return route;
    route.directions = row->directions;
    for (std::size_t i = 0; i < route.directions.size(); ++i)
        route.lanes[i] = Across(points[i == 0 ? 1 : i], IsHorizontal(route.directions[i]));
    return route;
}

void FindRuns(const NudgedLink &link, std::size_t position, NudgedRoute &route) {
    const std::vector<QPointF> points = PointsOf(link, route);
    route.runs.clear();
    for (std::size_t i = 1; i < points.size(); ++i) AddSegment(i - 1, points[i - 1], points[i], route.runs);
    for (std::size_t i = 0; i < route.runs.size(); ++i) {
        Run &run = route.runs[i];
        run.route = position, run.place = i;
        run.isSource = run.first == 0, run.isDestination = run.last + 2 == points.size();
    }
}

Span RoomOf(const NudgedLink &link, const NudgedRoute &route, const Run &run) {
    if (route.directions.empty()) return {run.at, run.at};
    const RouteRequest &request = link.request;
    Span room{run.at - kReach, run.at + kReach};
    if (run.isSource) Intersect(SideOf(request.source, run.level), room);
    if (run.isDestination) Intersect(SideOf(request.destination, run.level), room);
    room = {std::min(room.low, run.at), std::max(room.high, run.at)};
    if (!run.isSource) Limit(request.source.box, run, Clearance(request.source), room);
    if (!run.isDestination) Limit(request.destination.box, run, Clearance(request.destination), room);
    if (!request.obstacles) return room;
    const QPointF from = run.level ? QPointF(run.Low(), room.low) : QPointF(room.low, run.Low());
    const QPointF to = run.level ? QPointF(run.High(), room.high) : QPointF(room.high, run.High());
    std::vector<QRectF> boxes;
    request.obstacles->In(Neighbourhood(from, to, kClear), boxes);
    for (const QRectF &box : boxes) Limit(box, run, kClear, room);
    return room;
}

double WishOf(const NudgedLink &link, const Run &run) {
    if (link.stays || link.request.mostAside > 0) return run.at;
    const double source = SpanOf(link.request.source.box, !run.level).Middle();
    const double destination = SpanOf(link.request.destination.box, !run.level).Middle();
    if (run.isSource && run.isDestination) return (source + destination) / 2;
    return run.isSource ? source : run.isDestination ? destination : run.at;
}

int Turning(const std::vector<NudgedRoute> &routes, const Run &one, const Run &other, bool toHigher) {
    const int right =
        Parting(Walker(routes[one.route], one, toHigher), Walker(routes[other.route], other, toHigher));
    // Right of a walk to the right are higher coordinates, right of a walk downwards are lower ones.
    return one.level == toHigher ? right : -right;
}

} // namespace diagram
