// First step of the layered layout: which edges run against the others.
#pragma once

#include "diagram/layout/LayoutGraph.h"

#include <vector>

namespace diagram {

// Ways to choose the edges that are turned round so that none closes a cycle.
enum class CycleBreaking {
    FromSources, // those that lead back in a depth-first walk from the boxes to which no edge leads
    FromFirst,   // the same from the first box on, as a process was drawn
    // P. Eades, X. Lin and W. F. Smyth, "A Fast and Effective Heuristic for the Feedback Arc Set Problem",
    // Information Processing Letters 47, 1993: often the fewest
    Greedy
};

// Marks of these edges. Edges from a box to itself are not marked.
std::vector<char> BackEdges(int boxes, const std::vector<LayoutEdge> &edges, CycleBreaking how);

} // namespace diagram
