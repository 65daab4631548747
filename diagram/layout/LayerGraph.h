// A graph in layers, as the later steps of the layered layout see it.
#pragma once

#include <vector>

namespace diagram {

// A box, or where an edge passes a layer.
struct LayerVertex {
    double width = 0;
    double height = 0;
    double wish = 0; // where it stands now, from left to right
    int layer = 0;
    bool passes = false; // an edge does
};

// Every edge leads from one layer to the next one.
struct LayerEdge {
    int from = 0, to = 0;
};

struct LayerGraph {
    std::vector<LayerVertex> vertices;
    std::vector<LayerEdge> edges;
    std::vector<std::vector<int>> layers; // vertices from left to right
};

} // namespace diagram
