// The strip of months on a surface: which arrangement it has, and putting its parts where a plan has them.
#pragma once

#include "timeline/StripPlan.h"

namespace diagram {
class Node;
class Surface;
} // namespace diagram

namespace timeline {

// The number that the surface stores; 0 where it stores none.
int ArrangementOf(const diagram::Surface &flow);

// Whether the strip of the arrangement that the surface stores runs from left to right; else it runs
// downwards.
bool RunsRightwards(const diagram::Surface &flow);

// Makes the extent of a month along the strip 0: the height of a strip that runs downwards, the width of
// another. Nothing for a number that is no arrangement.
void TakeExtentAway(diagram::Node &month, int arrangement);

// Puts each day of the planned month into its place and the ends of its links onto it. `DayNodes` are those
// of the plan's task.
void PositionDateNodes(const std::vector<diagram::Node *> &DayNodes, const PlacedMonth &Month,
                       bool Horizontal);

} // namespace timeline
