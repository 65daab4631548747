// Where links jump over others.
#pragma once

#include "diagram/scene/ItemsAround.h"
#include "diagram/scene/Scene.h"

namespace diagram {

// In order along the route of the link, which has a jump style.
std::vector<Crossing> CrossingsOf(const Link &link, const ItemsAround &around);

} // namespace diagram
