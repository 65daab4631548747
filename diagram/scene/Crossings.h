// Where links jump over others.
#pragma once

#include "diagram/scene/ItemsAround.h"
#include "diagram/scene/Scene.h"

namespace diagram {

// Where the link, which must have a jump style, jumps over others, in order along its route.
std::vector<Crossing> CrossingsOf(const Link &link, const ItemsAround &around);

} // namespace diagram
