// The strip of months on a surface: reads its arrangement, and puts its parts where a plan wants them.
#pragma once

#include "timeline/StripPlan.h"

namespace diagram {
class Node;
class Surface;
} // namespace diagram

namespace timeline {

// The number of the arrangement that the surface stores; 0 where it stores none.
int ArrangementOf(const diagram::Surface &flow);

// Whether the strip of the arrangement that the surface stores runs from left to right; else it runs
// downwards.
bool RunsRightwards(const diagram::Surface &flow);

// Makes the length of the month along the strip 0: its width where the strip runs from left to right, else
// its height. Does nothing for a number that is no arrangement.
void TakeExtentAway(diagram::Node &month, int arrangement);

// Puts each day of the planned month into its place and the ends of its links onto it. `DayNodes` are the
// nodes of the days in the plan's task, in the same order. `Horizontal` tells that the strip runs from left
// to right.
void PositionDateNodes(const std::vector<diagram::Node *> &DayNodes, const PlacedMonth &Month,
                       bool Horizontal);

} // namespace timeline
