// The yardstick of the layered layout: Graphviz's dot engine, E. R. Gansner, E. Koutsofios, S. C. North and
// K.-P. Vo, "A Technique for Drawing Directed Graphs", IEEE Transactions on Software Engineering 19(3), 1993.
#pragma once

#include "diagram/layout/LayoutGraph.h"

namespace yardstick {

struct DotDrawing {
    std::vector<QPointF> centres; // of the boxes
    // The edges as straight pieces, from where each comes from on. An edge from a box to itself has none.
    std::vector<std::vector<QPointF>> routes;
};
// Downwards, whatever the options say.
DotDrawing DrawByDot(const diagram::LayoutGraph &graph, const diagram::LayoutOptions &options);

// Milliseconds that the engine takes to place the boxes; neither building its graph nor reading it back
// counts.
double TimeOfDot(const diagram::LayoutGraph &graph, const diagram::LayoutOptions &options);

// Routes of level and upright pieces between boxes that stay at their centres, by Graphviz's "ortho" splines:
// the yardstick of the router.
std::vector<std::vector<QPointF>> RouteByOrtho(const diagram::LayoutGraph &graph);

} // namespace yardstick
