// Boxes off the straight lines between others.
#pragma once

#include "diagram/layout/LayoutGraph.h"
#include "diagram/layout/Progress.h"

namespace diagram {

// Pushes boxes off the lines between the centres of boxes that an edge joins, and boxes that touch apart, for
// some rounds: what doesn't come free by then stays.
void PushOffLines(const LayoutGraph &graph, std::vector<QPointF> &centres, double gap, Progress &progress);

// How many times a box lies on the straight line between two others that an edge joins.
int BoxesOnLines(const LayoutGraph &graph, const std::vector<QPointF> &centres);

} // namespace diagram
