// Routes without the bends that only the number of segments of their style asks for.
#pragma once

#include "diagram/shapes/RouterLanes.h"

namespace diagram {

// The lanes with stairs drawn straight where the route meets nothing more by that. Segments that aren't
// needed are still there, without a length.
Coordinates WithFewestBends(const RouteRequest &request, std::string_view directions, Coordinates lanes);

// Whether the route runs through no more obstacles than before, and comes near to no more.
bool MeetsNoMore(const RouteRequest &request, const Track &before, const Track &now);

} // namespace diagram
