// How a route changes when one of its bends or segments is dragged: pure functions from route to route.
#pragma once

#include "diagram/geometry/Point.h"

#include <vector>

namespace diagram {

// The bend `index` at `to`; the ends of the route are no bends and stay.
std::vector<Point> BendDragged(const std::vector<Point> &route, int index, const QPointF &to, int style);
// The segment dragged by its middle to `to`: an orthogonal one is shifted across its direction, a Polyline or
// Spline gets a new bend there, and a Bezier moves the nearer of its control points.
std::vector<Point> SegmentDragged(const std::vector<Point> &route, int segment, const QPointF &to, int style);
// Whether the point `index` lies between its neighbours, at most `reach` off the straight line from the one
// to the other: a bend there is none. Twips.
bool IsInLine(const std::vector<Point> &route, int index, double reach);

} // namespace diagram
