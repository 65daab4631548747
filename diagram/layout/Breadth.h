// Breadth first search.
#pragma once

#include "diagram/layout/Parts.h"

namespace diagram {

// A search from one box of a connected part to all others.
struct BreadthFirst {
    BreadthFirst(const Adjacency &neighbours, int root);

    std::vector<int> order;  // in which they are reached
    std::vector<int> depth;  // edges from the root
    std::vector<int> parent; // -1 for the root
};

} // namespace diagram
