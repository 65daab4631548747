// Layered drawing of a directed graph by Graphviz's dot engine: E. R. Gansner, E. Koutsofios, S. C. North and
// K.-P. Vo, "A Technique for Drawing Directed Graphs", IEEE Transactions on Software Engineering 19(3), 1993.
#pragma once

#include "diagram/layout/LayoutGraph.h"

namespace diagram {

// The new centres of the boxes; the same graph always gives the same ones. Takes as long as the engine does:
// programs with a window ask LayeredElsewhere instead. Error 20002 "The diagram could not be laid out" when
// the engine gives up.
std::vector<QPointF> Layered(const LayoutGraph &graph, const LayoutOptions &options);

} // namespace diagram
