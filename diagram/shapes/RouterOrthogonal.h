// The ways that run horizontally and vertically only.
#pragma once

#include "diagram/shapes/Router.h"

#include <string_view>

namespace diagram {

// A way with exactly these directions, "VHV" and the like.
std::vector<Point> RouteOrthogonal(const RouteRequest &request, std::string_view directions);

} // namespace diagram
