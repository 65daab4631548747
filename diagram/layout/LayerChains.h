// A connected part in layers, each long edge cut into a chain of short ones.
#pragma once

#include "diagram/layout/LayerGraph.h"
#include "diagram/layout/LayoutGraph.h"
#include "diagram/layout/Patience.h"

namespace diagram {

constexpr double kBeside = 180; // twips between edges that join the same two boxes, at least

// All edges between two boxes; edges of one go side by side.
struct EdgeChain {
    int upper = 0, lower = 0;        // boxes
    std::vector<int> passes = {};    // vertices between them, downwards
    std::vector<int> edges = {};     // of the part
    std::vector<double> asides = {}; // of the edges: how far to the right of the chain's middle each lies
    bool bends = false;              // even where the straight line is free, as labels lie side by side
};

struct LayeredPart {
    LayerGraph graph; // the boxes first, as they are numbered in the part
    std::vector<EdgeChain> chains;
    bool labelled = false; // every second layer holds labels only, and edges that pass
};

// How the boxes come to their layers.
struct Layering {
    std::vector<char> back; // marks of the edges that are turned round: the others close no cycle
    bool balanced = true;   // see RankBoxes
    bool mirrored = false;  // layered from below, which gives another one of equally good layerings
    int bias = 0;           // crossings that are added to its own when layerings are compared
};

// Gives each box a layer. The order within the layers is that of the boxes.
LayeredPart CutIntoLayers(const LayoutGraph &part, const Layering &layering, Patience &patience);

} // namespace diagram
