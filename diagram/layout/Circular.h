// A circle for each part of a diagram: M. Baur and U. Brandes, "Crossing Reduction in Circular Layouts",
// Graph-Theoretic Concepts in Computer Science 2004.
#pragma once

#include "diagram/layout/LayoutGraph.h"
#include "diagram/layout/Progress.h"

namespace diagram {

// The new centres of the boxes: those of a part on a circle, the first one at its top, in an order in which
// few edges cross; the parts are packed. No box touches another. The orientation plays no part. Throws
// Progress::GivenUp.
std::vector<QPointF> Circular(const LayoutGraph &graph, const LayoutOptions &options, Progress &progress);

// The order of one part's boxes around the circle, and how many pairs of edges cross in an order.
std::vector<int> CircularOrder(const LayoutGraph &part, Progress &progress);
long CircularCrossings(const LayoutGraph &part, const std::vector<int> &order);

} // namespace diagram
