// Graphs for the layered layout and its steps.
#pragma once

#include "diagram/layout/LayoutGraph.h"
#include "diagram/layout/Patience.h"

#include <random>

namespace diagram::testing {

inline const GoOn kAlways = [] { return true; };

// Boxes of one size without places.
inline LayoutGraph SmallBoxes(int boxes, std::vector<LayoutEdge> edges) {
    LayoutGraph graph;
    graph.sizes.assign(std::size_t(boxes), QSizeF(1000, 600));
    graph.centres.resize(std::size_t(boxes));
    graph.edges = std::move(edges);
    return graph;
}

// Boxes of many sizes, edges of every kind: in cycles, double, from a box to itself; several parts.
inline LayoutGraph RandomGraph(unsigned seed, int boxes, int edges) {
    std::mt19937 random(seed);
    LayoutGraph graph;
    for (int i = 0; i < boxes; ++i) {
        graph.sizes.emplace_back(200 + random() % 2000, 200 + random() % 900);
        graph.centres.emplace_back(random() % 20000, random() % 20000);
    }
    for (int i = 0; i < edges; ++i)
        graph.edges.push_back({int(random() % unsigned(boxes)), int(random() % unsigned(boxes))});
    return graph;
}

// Boxes 3 and 4 are a title and what stands beside it, 5 stands below all.
inline LayoutGraph TitledGraph() {
    LayoutGraph graph = SmallBoxes(6, {{0, 1}, {1, 2}, {0, 2}});
    graph.centres = {{0, 0}, {0, 1500}, {2500, 3000}, {300, -1400}, {2100, -1500}, {0, 6000}};
    return graph;
}

} // namespace diagram::testing
