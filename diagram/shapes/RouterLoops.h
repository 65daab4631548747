// Links from a node to itself.
#pragma once

#include "diagram/shapes/RouterLanes.h"

namespace diagram {

// Out of the right side, over the corner, and into the top; five points.
std::vector<Point> CornerLoop(const RouteRequest &request);

// Round the box, turn by turn, on the side with the fewest obstacles.
Coordinates LoopLanes(const RouteRequest &request, std::string_view directions);

} // namespace diagram
