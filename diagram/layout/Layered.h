// Layered drawing of a directed graph, as K. Sugiyama, S. Tagawa and M. Toda have cut it into steps ("Methods
// for Visual Understanding of Hierarchical System Structures", IEEE Transactions on Systems, Man, and
// Cybernetics 11(2), 1981): LayeredCycles, LayeredRanks, LayeredOrder, LayeredColumns, and LayeredBends or
// LayeredCorners.
#pragma once

#include "diagram/layout/LayoutGraph.h"
#include "diagram/layout/Patience.h"

#include <optional>

namespace diagram {

struct LayeredDrawing {
    std::vector<QPointF> centres; // of the boxes
    // Of each edge between its ends, from the box it comes from on. Empty where the straight line meets no
    // other box, and for edges from a box to itself.
    std::vector<std::vector<QPointF>> bends;
    // The same for edges of level and upright pieces that pass layers: two corners for each piece across.
    // Empty for edges that go from one layer to the next one.
    std::vector<std::vector<QPointF>> corners;
    bool kept = false; // most boxes lie in the layers in which they stood, about where they stood
};

// Boxes of one layer stand on one line; parents stand over the middle of their children where there is room;
// edges that lead past boxes bend where they pass their layers; edges that join the same two boxes lie beside
// each other; labels have room in the middle of their edges; unconnected parts are packed. Clusters stand
// side by side, none over another, each from left to right as wide as its boxes need. Boxes keep their
// present order as far as it crosses no more edges than any other that is found; where they stand in layers
// already, also if it crosses a few more, and the drawing stays where it was. The same graph always gives the
// same drawing. Nothing when it was given up.
std::optional<LayeredDrawing> DrawInLayers(const LayoutGraph &graph, const LayoutOptions &options,
                                           const GoOn &goOn);

} // namespace diagram
