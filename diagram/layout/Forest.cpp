#include "diagram/layout/Forest.h"

#include "diagram/layout/TidyTree.h"
#include "support/Error.h"

#include <algorithm>

namespace diagram {

namespace {

[[noreturn]] void RefuseTree() {
    throw support::Error(kErrNoForest, QStringLiteral("TidyTree"),
                         QStringLiteral("The diagram is not a tree"));
}

std::vector<int> Parents(const LayoutGraph &graph) {
    std::vector<int> parents(graph.sizes.size(), kNoBox);
    for (const LayoutEdge &edge : graph.edges) {
        int &parent = parents[std::size_t(edge.to)];
        if ((parent != kNoBox && parent != edge.from) || edge.from == edge.to) RefuseTree();
        parent = edge.from;
    }
    return parents;
}

// For each box, and at the end for the one above all, its children in the order of their places.
std::vector<std::vector<int>> Children(const LayoutGraph &graph) {
    const std::vector<int> parents = Parents(graph);
    std::vector<int> order(parents.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = int(i);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return graph.centres[std::size_t(a)].x() < graph.centres[std::size_t(b)].x();
    });
    std::vector<std::vector<int>> children(parents.size() + 1);
    for (const int box : order) {
        const int parent = parents[std::size_t(box)];
        children[parent == kNoBox ? parents.size() : std::size_t(parent)].push_back(box);
    }
    return children;
}

} // namespace

Forest MakeForest(const LayoutGraph &graph) {
    const std::vector<std::vector<int>> children = Children(graph);
    Forest forest;
    forest.boxes.reserve(graph.sizes.size() + 1);
    forest.boxes.push_back({});
    for (std::size_t at = 0; at < forest.boxes.size(); ++at) {
        const Forest::Box parent = forest.boxes[at];
        const auto &under = children[parent.box == kNoBox ? graph.sizes.size() : std::size_t(parent.box)];
        if (under.empty()) continue;
        forest.boxes[at].firstChild = int(forest.boxes.size());
        forest.boxes[at].children = int(under.size());
        for (std::size_t i = 0; i < under.size(); ++i)
            forest.boxes.push_back({int(at), kNoBox, 0, int(i), parent.level + 1, under[i]});
    }
    // Boxes on a cycle hang on no root and were never reached.
    if (forest.boxes.size() != graph.sizes.size() + 1) RefuseTree();
    return forest;
}

} // namespace diagram
