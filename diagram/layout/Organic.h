// Boxes as far apart as their ways along the edges are long: E. R. Gansner, Y. Koren and S. North, "Graph
// Drawing by Stress Majorization", Graph Drawing 2004; large parts by M. Ortmann, M. Klimenta and U. Brandes,
// "A Sparse Stress Model", Graph Drawing 2016.
#pragma once

#include "diagram/layout/LayoutGraph.h"
#include "diagram/layout/Progress.h"

namespace diagram {

// Parts with more boxes are laid out by the ways to some of them alone.
constexpr int kMostWithoutPivots = 2000;

// The new centres of the boxes: each part wider than high, boxes off straight lines between others where a
// small shift does it; no box touches another. The orientation plays no part, and neither do the present
// places. Throws Progress::GivenUp.
std::vector<QPointF> Organic(const LayoutGraph &graph, const LayoutOptions &options, Progress &progress);

} // namespace diagram
