// Graphs for the layouts.
#pragma once

#include "diagram/layout/LayoutGraph.h"
#include "diagram/layout/Progress.h"

namespace diagram::testing {

inline const Advance kNobody; // watches the progress

// Boxes of one size, all at one place.
inline LayoutGraph Graph(int boxes, std::vector<LayoutEdge> edges) {
    LayoutGraph graph;
    graph.sizes.assign(std::size_t(boxes), QSizeF(1500, 750));
    graph.centres.assign(std::size_t(boxes), QPointF());
    graph.edges = std::move(edges);
    return graph;
}

} // namespace diagram::testing
