// Layouts are worked out downwards; these turn the plane for the other orientations.
#pragma once

#include "diagram/layout/LayoutGraph.h"

namespace diagram {

// Whether layers stand beside each other, not below each other.
bool IsLevel(LayoutOrientation orientation);

// `graph` turned so that its levels go downwards.
LayoutGraph TurnedDown(const LayoutGraph &graph, LayoutOrientation orientation);
// Centres worked out downwards, turned to the orientation.
std::vector<QPointF> TurnedBack(std::vector<QPointF> centres, LayoutOrientation orientation);

} // namespace diagram
