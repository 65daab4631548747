// Boxes in rows along their edges.
#pragma once

#include "diagram/layout/LayoutGraph.h"

namespace diagram {

// The row of each box, from 0: behind all those from which edges lead to it, but for the edges that close a
// cycle, and directly before the nearest to which it leads where nothing leads to it. -1 for boxes without
// edges. Where cycles begin is told by the places: what stands highest, then leftmost, comes first.
std::vector<int> RowsAlongEdges(const LayoutGraph &graph);

} // namespace diagram
