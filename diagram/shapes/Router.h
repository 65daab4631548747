// Where the points of a link lie: pure functions from two boxes to a route.
#pragma once

#include "diagram/geometry/Point.h"
#include "diagram/shapes/Obstacles.h"

#include <QRectF>
#include <span>
#include <vector>

namespace diagram {

struct RouteEnd {
    QRectF box; // twips
    int shape = 1;
    int orientation = 0;
    double head = 0; // twips of the route that its arrow head covers; 0 without one
};

struct RouteRequest {
    int style = 0;
    RouteEnd source;
    RouteEnd destination;
    bool sameNode = false;      // a link from a node to itself: drawn as a loop
    std::span<const Point> old; // the route so far; empty for a new link
    bool keepBends = false;     // the bends of `old` are the user's: move only what the ends make move
    const Obstacles *obstacles = nullptr; // what the route must go round; null for nothing
    // How far beside the route that it would have alone the link is to lie, so that links between the same
    // two nodes stay apart: twips to the left as seen from the source. A loop lies that much further out.
    double aside = 0;
    // The `aside` of the outermost of these links, 0 for a link alone; where room is short, all come nearer
    // evenly.
    double mostAside = 0;
    // Of two directions between the same nodes, the one that is laid out as if it were the other.
    bool backwards = false;
};

// A route of at least two points; the first lies on the outline of the source, the last on that of the
// destination. Orthogonal styles give exactly the directions of their row, each segment horizontal or
// vertical to the bit, and keep clear of obstacles as far as their directions let them; polylines bend round
// those that they would run through. Loops of styles with one bend have three, as one alone would stay inside
// of the box.
std::vector<Point> FindRoute(const RouteRequest &request);

// The route `points` with the point at `position` moved. Of an orthogonal style the two segments there move
// with it, so that they stay horizontal or vertical; FindRoute then puts the first and the last point back on
// the outlines.
std::vector<Point> WithBendMoved(int style, std::vector<Point> points, int position, const Point &point);

} // namespace diagram
