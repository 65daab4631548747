// Fourth step of the layered layout: where the vertices stand within their layers.
#pragma once

#include "diagram/layout/LayerGraph.h"
#include "diagram/layout/Patience.h"

namespace diagram {

struct LayerGaps {
    double boxes = 450;   // twips between two boxes of a layer
    double passing = 200; // twips between a box and an edge that passes, or between two of these
};

// The middles of the vertices from left to right: as near to those that they are joined with as the order
// lets them, in the sum of the squares, layer by layer (LayerRelaxing) until little changes; edges then go
// straight on through the layers that they pass, unless they cross one another there (LayerLanes).
std::vector<double> PlaceInLayers(const LayerGraph &graph, const LayerGaps &gaps, Patience &patience);

// The least distance between the middles of a vertex and the next one of its layer.
double LeastDistance(const LayerVertex &vertex, const LayerVertex &next, const LayerGaps &gaps);

} // namespace diagram
