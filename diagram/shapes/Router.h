// Where the points of a link lie: pure functions from two boxes to a way.
#pragma once

#include "diagram/geometry/Point.h"

#include <QRectF>
#include <span>
#include <vector>

namespace diagram {

struct RouteEnd {
    QRectF box; // twips
    int shape = 1;
    int orientation = 0;
};

struct RouteRequest {
    int style = 0;
    RouteEnd source;
    RouteEnd destination;
    bool sameNode = false;      // a link from a node to itself: drawn as a loop
    std::span<const Point> old; // the way so far; empty for a new link
    bool keepBends = false;     // the bends of `old` are the user's: move only what the ends make move
};

// A way of at least two points; the first lies on the outline of the source, the last on that of the
// destination. Orthogonal styles give exactly the directions of their row, each segment horizontal or
// vertical to the bit.
std::vector<Point> Route(const RouteRequest &request);

// The way `points` with the point at `position` moved. Of an orthogonal style the two segments there move
// with it, so that they stay horizontal or vertical; the first and the last point are then for Route to put
// back on the outlines.
std::vector<Point> WithBendMoved(int style, std::vector<Point> points, int position, const Point &point);

} // namespace diagram
