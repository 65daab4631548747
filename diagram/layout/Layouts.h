// The layouts that there are.
#pragma once

#include "diagram/layout/Layout.h"
#include "diagram/layout/Progress.h"

#include <functional>
#include <QString>
#include <span>

namespace diagram {

class Node;

struct LayoutOrder {
    LayoutScope scope = LayoutScope::All;
    LayoutOptions options;
    // The lane in which a node belongs, from 0; below 0 for none. Without it all nodes belong in one.
    std::function<int(const Node &node)> lane = {};
    // Which nodes the hierarchical layout keeps together: those with the same number from 0; below 0 for
    // none. Without it none are.
    std::function<int(const Node &node)> cluster = {};
    Advance advance = {}; // may be empty
};

enum class LayoutResult {
    GivenUp, // nothing has changed
    LaidOut,
    AsSpanningTree // as a tree, though the diagram is none: by the links of a spanning tree
};

struct LayoutRow {
    const char *name; // on a command line
    // Moves the nodes; opens no group of its own.
    LayoutResult (*layOut)(Surface &surface, const LayoutOrder &order);
};

std::span<const LayoutRow> LayoutTable();
const LayoutRow *FindLayout(const QString &name); // null when there is none

} // namespace diagram
