// Routes without the bends that only the name of their style asks for.
#pragma once

#include "diagram/shapes/RouterLanes.h"

namespace diagram {

// The lanes with stairs drawn straight, where nothing more is met by that. Segments that aren't needed are
// there, without a length.
Coordinates WithFewestBends(const RouteRequest &request, std::string_view directions, Coordinates lanes);

// Whether a route runs through no more boxes than before, and comes near to no more.
bool MeetsNoMore(const RouteRequest &request, const Track &before, const Track &now);

} // namespace diagram
