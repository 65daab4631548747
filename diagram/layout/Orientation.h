// Layouts are worked out downwards; these turn the plane for the other orientations.
#pragma once

#include "diagram/layout/LayoutGraph.h"

namespace diagram {

// `graph` seen so that its levels go downwards.
// Whether the layers stand beside each other.
bool IsLevel(LayoutOrientation orientation);

LayoutGraph TurnedDown(const LayoutGraph &graph, LayoutOrientation orientation);
// Centres worked out downwards, turned to the orientation.
std::vector<QPointF> TurnedBack(std::vector<QPointF> centres, LayoutOrientation orientation);

} // namespace diagram
