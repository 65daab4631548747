#include "diagram/shapes/NudgeBends.h"

#include "diagram/shapes/RouterAvoid.h"

#include <algorithm>
#include <cmath>

namespace diagram {

namespace {

constexpr double kNoLength = 0.5; // twips

double Along(const Track &track, std::size_t segment, bool level) {
    const QPointF way = track.points[segment + 1] - track.points[segment];
    return level ? way.x() : way.y();
}

// A stair: segment `step` and the one behind the next go on in the same direction.
bool IsStair(const Track &track, std::string_view directions, std::size_t step) {
    const bool level = IsHorizontal(directions[step]);
    const double one = Along(track, step, level), other = Along(track, step + 2, level);
    return one * other > 0 && std::abs(Along(track, step + 1, !level)) > kNoLength;
}

// Whether a piece comes so near to a node of the link that what lies between is hidden by an arrow head, or
// looks like a slip.
bool MeetsEnd(const RouteEnd &end, const QPointF &from, const QPointF &to) {
    return Meets(end.box, from, to, std::max(kClearance / 2, end.head + kHeadRoom));
}

std::size_t CountEndsMet(const RouteRequest &request, const Track &track) {
    std::size_t count = 0;
    for (std::size_t i = 1; i < track.count; ++i) {
        const QPointF &from = track.points[i - 1], &to = track.points[i];
        count += i > 1 && MeetsEnd(request.source, from, to);
        count += i + 1 < track.count && MeetsEnd(request.destination, from, to);
    }
    return count;
}

// Both parts on one lane: that of the end, which lies where its node wants it, or in the middle.
double CommonLane(const Coordinates &lanes, std::string_view directions, std::size_t step) {
    if (step == 0) return lanes[0];
    return step + 3 == directions.size() ? lanes[step + 2] : (lanes[step] + lanes[step + 2]) / 2;
}

// Puts the segment onto that lane, and with it the segments that lie on one line with it.
void Put(std::size_t segment, double lane, std::size_t count, Coordinates &lanes) {
    std::size_t first = segment, last = segment;
    while (first >= 2 && lanes[first - 2] == lanes[first]) first -= 2;
    while (last + 2 < count && lanes[last + 2] == lanes[last]) last += 2;
    for (std::size_t i = first; i <= last; i += 2) lanes[i] = lane;
}

// Those between the ends first, so that the route bends in the middle.
std::vector<std::size_t> StepsOf(std::size_t segments) {
    std::vector<std::size_t> steps;
    for (std::size_t i = 1; i + 3 < segments; ++i) steps.push_back(i);
    steps.push_back(0), steps.push_back(segments - 3);
    return steps;
}

} // namespace

bool MeetsNoMore(const RouteRequest &request, const Track &before, const Track &now) {
    for (const double nearness : {0.0, kNearness}) {
        const std::size_t met = CountMet(request, before, nearness);
        if (CountMet(request, now, nearness, met) > met) return false;
    }
    return true;
}

Coordinates WithFewestBends(const RouteRequest &request, std::string_view directions, Coordinates lanes) {
    if (directions.size() < 4) return lanes; // too few for stairs
    Track track = TrackOf(request, directions, lanes);
    const std::size_t endsMet = CountEndsMet(request, track);
    for (const std::size_t step : StepsOf(directions.size())) {
        if (!IsStair(track, directions, step)) continue;
        const double lane = CommonLane(lanes, directions, step);
        Coordinates straight = lanes;
        Put(step, lane, directions.size(), straight);
        Put(step + 2, lane, directions.size(), straight);
        const Track now = TrackOf(request, directions, straight);
        if (CountEndsMet(request, now) > endsMet || !MeetsNoMore(request, track, now)) continue;
        lanes = straight, track = now;
    }
    return lanes;
}

} // namespace diagram
