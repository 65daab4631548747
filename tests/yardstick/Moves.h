// How far boxes move when a diagram that was laid out is laid out again after a small change.
#pragma once

#include "diagram/layout/LayoutGraph.h"

namespace yardstick {

// A diagram of a hundred nodes in layers: links to boxes at most twelve further on, a few of them backwards.
diagram::LayoutGraph Hundred(unsigned seed);

struct Moves {
    double again = 0;   // twips, the mean over all boxes that stay
    double scratch = 0; // the same when nobody knows where they stood, shifted as far back as possible
};
// Lays the diagram out; adds a node with a link and takes one away with its links; lays out again.
Moves MovesAfterSmallChange(diagram::LayoutGraph graph, unsigned seed);

} // namespace yardstick
