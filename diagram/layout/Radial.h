// Rings around a middle: G. Di Battista, P. Eades, R. Tamassia and I. G. Tollis, "Graph Drawing", 1999,
// section 3.1.3, on a spanning tree.
#pragma once

#include "diagram/layout/LayoutGraph.h"
#include "diagram/layout/Progress.h"

namespace diagram {

// The new centres of the boxes: in the middle of each part the box from which all others are reached along
// the edges, if there is just one without an edge to it, else one from which it is nowhere far; around it the
// others, as many rings out as they are edges away. No box touches another. The orientation plays no part.
// Throws Progress::GivenUp.
std::vector<QPointF> Radial(const LayoutGraph &graph, const LayoutOptions &options, Progress &progress);

} // namespace diagram
