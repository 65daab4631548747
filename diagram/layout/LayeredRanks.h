// Second step of the layered layout: in which layer each box stands.
#pragma once

#include "diagram/layout/Patience.h"

#include <vector>

namespace diagram {

struct RankEdge {
    int from = 0, to = 0;
    int length = 1; // layers that it spans at least
    int weight = 1;
};

// Layers from 0 downwards so that every edge leads down by its length at least and the weighted sum of what
// they span is as small as it gets: network simplex as in E. R. Gansner, E. Koutsofios, S. C. North and
// K.-P. Vo, "A Technique for Drawing Directed Graphs", IEEE Transactions on Software Engineering 19(3), 1993.
// With `balanced`, boxes that cost the same in several layers stand in the emptiest of these. The graph must
// be connected and without cycles.
std::vector<int> RankBoxes(int boxes, const std::vector<RankEdge> &edges, bool balanced, Patience &patience);

} // namespace diagram
