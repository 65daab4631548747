// The unconnected parts of a graph.
#pragma once

#include "diagram/layout/LayoutGraph.h"

namespace diagram {

struct LayoutPart {
    LayoutGraph graph;
    std::vector<int> boxes; // of the whole graph, in their order there
    std::vector<int> edges;
};

// In the order of their first boxes.
std::vector<LayoutPart> PartsOf(const LayoutGraph &graph);

} // namespace diagram
