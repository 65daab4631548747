// Straight routes that bend round obstacles.
#pragma once

#include "diagram/shapes/Router.h"

namespace diagram {

// `straight`, a route of two points, where it runs through no obstacle; else a route round what is in its
// way, with few bends: one for each detour, and one more where that saves a long way. What can't be gone
// round is run through.
//
// The bends are corners of the boxes in the way, kept clear of them (a shortest path in their visibility
// graph, as in de Berg et al., Computational Geometry, chapter 15, with a price for each bend), or the one
// point in which two lines past such corners meet. The search begins with the boxes that the straight line
// meets, and is made again with those that the route found meets.
std::vector<Point> RoundObstacles(const RouteRequest &request, std::vector<Point> straight);

} // namespace diagram
