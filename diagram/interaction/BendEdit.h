// How a way changes when one of its bends or segments is dragged: pure functions from way to way.
#pragma once

#include "diagram/geometry/Point.h"

#include <vector>

namespace diagram {

// The bend `index` at `to`; the ends of the way are no bends and stay.
std::vector<Point> BendDragged(const std::vector<Point> &way, int index, const QPointF &to, int style);
// The segment dragged by its middle to `to`: an orthogonal one is shifted across its direction, a Polyline or
// Spline gets a new bend there, and a Bezier moves the nearer of its control points.
std::vector<Point> SegmentDragged(const std::vector<Point> &way, int segment, const QPointF &to, int style);
// Whether the point `index` lies between its neighbours, at most `reach` off the straight line from the one
// to the other: a bend there is none. Twips.
bool IsInLine(const std::vector<Point> &way, int index, double reach);
// Whether single bends can be added and taken away.
bool HasFreeBends(int style);

} // namespace diagram
