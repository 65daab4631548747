// The ways that run horizontally and vertically only.
#pragma once

#include "diagram/shapes/RouterLanes.h"

namespace diagram {

// A way with exactly these directions, "VHV" and the like.
std::vector<Point> RouteOrthogonal(const RouteRequest &request, std::string_view directions);

// The way along these lanes, between the outlines.
std::vector<Point> JoinLanes(const RouteRequest &request, std::string_view directions,
                             const Coordinates &lanes);

} // namespace diagram
