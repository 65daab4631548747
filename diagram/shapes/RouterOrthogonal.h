// The routes that run horizontally and vertically only.
#pragma once

#include "diagram/shapes/RouterLanes.h"

namespace diagram {

// A route with exactly these directions, "VHV" and the like.
std::vector<Point> RouteOrthogonal(const RouteRequest &request, std::string_view directions);

// The route along these lanes, between the outlines.
std::vector<Point> JoinLanes(const RouteRequest &request, std::string_view directions,
                             const Coordinates &lanes);

} // namespace diagram
