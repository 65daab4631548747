// Lanes: the one free number of each segment of an orthogonal route, the x of a vertical one and the y of a
// horizontal one. The bends are where neighbouring lanes meet, and the ends are where the first and the last
// lane meet the outlines, so that choosing the lanes is all.
#pragma once

#include "diagram/shapes/RouterClip.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace diagram {

constexpr double kClearance = 240;  // twips between a box and a lane that goes round it
constexpr double kSmallestGap = 60; // twips; boxes closer than that aren't parted by a lane between them
constexpr double kHeadRoom = 45;    // twips of line that stay in sight behind an arrow head
constexpr std::size_t kMostSegments = 7;

// Twips along one axis.
struct Span {
    double low, high;
    double Middle() const { return (low + high) / 2; }
    bool Holds(double value) const { return value >= low && value <= high; }
};

inline Span SpanOf(const QRectF &box, bool horizontal) {
    return horizontal ? Span{box.left(), box.right()} : Span{box.top(), box.bottom()};
}

inline bool IsHorizontal(char direction) { return direction == 'H'; }
inline Axis AxisOf(char direction) { return IsHorizontal(direction) ? Axis::Horizontal : Axis::Vertical; }

// The lanes of a route, in its order.
using Coordinates = std::array<double, kMostSegments>;

// Where the lane of an end segment may lie in its box.
inline Span LanesThrough(const Span &box) {
    const double inset = std::min(kSmallestGap, (box.high - box.low) / 4);
    return {box.low + inset, box.high - inset};
}

inline double HeldInBox(double lane, const Span &box) {
    const Span span = LanesThrough(box);
    return std::clamp(lane, span.low, span.high);
}

// The corners of the route that the lanes give, with its ends on the boxes rather than on the outlines.
struct Track {
    std::array<QPointF, kMostSegments + 1> points;
    std::size_t count = 0; // of points
};
Track TrackOf(const RouteRequest &request, std::string_view directions, const Coordinates &lanes);

// The lanes that a route takes when nothing else is near: through the middles of the boxes, and evenly
// between them or round them.
Coordinates ChooseCoordinates(const RouteRequest &request, std::string_view directions);

// The lanes of the bends of `request.old`; those of the ends as far as they still go through the boxes.
Coordinates KeptCoordinates(const RouteRequest &request, std::string_view directions);

} // namespace diagram
