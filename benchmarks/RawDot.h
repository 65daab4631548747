// The yardstick of the layered layout: the engine by itself, in this process.
#pragma once

#include "diagram/layout/LayoutGraph.h"

namespace bench {

// Milliseconds that the engine takes to place the boxes; neither building its graph nor reading it back
// counts.
double RawDot(const diagram::LayoutGraph &graph, const diagram::LayoutOptions &options);

// The links as the engine draws them, as straight pieces, from where each comes from on. A link from a node
// to itself has none.
std::vector<std::vector<QPointF>> DotWays(const diagram::LayoutGraph &graph,
                                          const diagram::LayoutOptions &options);

} // namespace bench
