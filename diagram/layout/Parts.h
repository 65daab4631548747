// The connected parts of a diagram.
#pragma once

#include "diagram/layout/LayoutGraph.h"
#include "diagram/layout/Progress.h"

#include <functional>

namespace diagram {

// For each box those that an edge joins it to, whichever way: each once, in ascending order, never itself.
using Adjacency = std::vector<std::vector<int>>;
Adjacency NeighboursOf(const LayoutGraph &graph);

struct Part {
    std::vector<int> boxes; // of the whole, ascending
    std::vector<int> edges; // the same
    LayoutGraph graph;
};
// In the order of their first boxes. Boxes of one cluster are in one part, but where it is that of all.
std::vector<Part> PartsOf(const LayoutGraph &graph);

// The left top corners of the parts on one page, of extents of these sizes: packed, `gap` twips apart. Single
// boxes just above all that is linked, a title say, stay so: above the rest, and to each other as they are.
std::vector<QPointF> PackParts(const std::vector<Part> &parts, const std::vector<QSizeF> &sizes, double gap);

// The centres of one part's boxes.
using PlacePart = std::function<std::vector<QPointF>(const LayoutGraph &part, Progress &progress)>;
// Each part by itself, then all of them packed, `gap` twips apart. Single boxes aren't asked for.
std::vector<QPointF> PlaceParts(const LayoutGraph &graph, double gap, Progress &progress,
                                const PlacePart &place);

} // namespace diagram
