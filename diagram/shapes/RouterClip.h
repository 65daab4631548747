// Where the ends of a route meet the outlines of the boxes.
#pragma once

#include "diagram/shapes/Router.h"

#include <QPointF>

namespace diagram {

enum class Axis : unsigned char { Horizontal, Vertical }; // the direction in which a segment runs

// The outermost point of the outline on the ray from the middle of the box towards `point`; with `point`
// inside the box, the ray goes on through it. A point at the very middle counts as one to its right.
QPointF ClipTowards(const RouteEnd &end, const QPointF &point);

// The point of the outline on the line of direction `axis` through `point`, nearest to `point`. Where the
// line misses the outline, the nearest point of the box on it or beside it.
QPointF ClipAlong(const RouteEnd &end, Axis axis, const QPointF &point);

// The outermost point of the outline on the line through `from` and `towards`, as seen from `towards`; where
// the line misses the outline, that of ClipTowards.
QPointF ClipBeside(const RouteEnd &end, const QPointF &from, const QPointF &towards);

} // namespace diagram
