// The children of each box, checked to be a forest.
#pragma once

#include "diagram/layout/LayoutGraph.h"

namespace diagram {

constexpr int kNoBox = -1;

// The boxes numbered level by level: each after its parent, the children of a box side by side in the order
// of their places. A box that stands above all others at number 0 joins the trees; it has no size.
struct Forest {
    struct Box {
        int parent = kNoBox;     // a number
        int firstChild = kNoBox; // a number; the others follow it
        int children = 0;
        int order = 0; // among its siblings, from 0
        int level = 0; // 0 for the box above all
        int box = kNoBox;
    };
    std::vector<Box> boxes;
};

// Error 20001 "The diagram is not a tree".
Forest MakeForest(const LayoutGraph &graph);

} // namespace diagram
