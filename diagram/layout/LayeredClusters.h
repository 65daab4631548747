// Steps three and four of the layered layout where boxes are kept together: clusters that share layers stand
// in stripes of their own, from the first layer to the last, which lie side by side.
#pragma once

#include "diagram/layout/LayerChains.h"
#include "diagram/layout/LayeredColumns.h"

namespace diagram {

// The stripe of each vertex, numbered from left to right. Boxes without a cluster share one. An edge passes
// layers in the stripe of the lower one of its boxes.
using Stripes = std::vector<int>;

// Brings an order with few crossings into stripes: each layer has the vertices of a stripe side by side, and
// the stripes in the same order. That order follows where their vertices stand, and goes on while changing
// two neighbours saves crossings. `clusters` are those of the boxes, below 0 for none.
Stripes OrderInStripes(LayeredPart &part, const std::vector<int> &clusters, Patience &patience);

// Like PlaceInLayers, with the stripes side by side, so that they don't overlap.
std::vector<double> PlaceInStripes(const LayeredPart &part, const Stripes &stripes, const LayerGaps &gaps,
                                   Patience &patience);

} // namespace diagram
