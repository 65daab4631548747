// Tidy drawing of trees in linear time: C. Buchheim, M. Jünger and S. Leipert, "Improving Walker's Algorithm
// to Run in Linear Time", Graph Drawing 2002, for boxes of any size.
#pragma once

#include "diagram/layout/LayoutGraph.h"

namespace diagram {

constexpr long kErrNoForest = 20001;

// The new centres of the boxes. Parents stand over the middle of their children, boxes of one level on one
// line, trees of a forest side by side. Siblings and trees keep the order in which they stand now. Error
// 20001 "The diagram is not a tree" when a box has two parents or an edge closes a cycle; an edge that stands
// twice counts once.
std::vector<QPointF> TidyTree(const LayoutGraph &graph, const LayoutOptions &options);

} // namespace diagram
