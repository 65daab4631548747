// A lane for each level, along which the links lead.
#pragma once

#include "diagram/layout/LayoutGraph.h"
#include "diagram/layout/Progress.h"

namespace diagram {

// The new centres of the boxes. Lanes lie side by side in the order of their numbers (LayoutGraph::lanes);
// along the orientation each box stands behind all those from which edges lead to it, as far as these close
// no cycle; boxes without edges fill the rows of their lane. No box touches another. Throws
// Progress::GivenUp.
std::vector<QPointF> InLanes(const LayoutGraph &graph, const LayoutOptions &options, Progress &progress);

} // namespace diagram
