// Whether a diagram is a tree, and the edges that make a tree of one that isn't.
#pragma once

#include "diagram/layout/LayoutGraph.h"

namespace diagram {

// Whether each box has one parent at most and no edges close a cycle; an edge that stands twice counts once.
bool IsForest(const LayoutGraph &graph);

// The same boxes with such edges only that they are a forest, in which each box is as near to a root as it
// can be. Roots are those to which nothing leads, then, where all are on cycles, those from which most leads
// on, highest and leftmost first.
LayoutGraph SpanningForest(const LayoutGraph &graph);

} // namespace diagram
