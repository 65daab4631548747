// The edges at each box of a graph, in one piece of memory.
#pragma once

#include "diagram/layout/LayoutGraph.h"

#include <span>
#include <vector>

namespace diagram {

// Indexes of edges by the box at one of their ends, in the order of the edges.
class EdgeLists {
public:
    // Lists by `end`, which is &LayoutEdge::from, &LayoutEdge::to or the same of a type like it.
    template <typename Edge>
    EdgeLists(int boxes, const std::vector<Edge> &edges, int Edge::*end)
        : start_(std::size_t(boxes) + 1), edges_(edges.size()) {
        for (const Edge &edge : edges) ++start_[std::size_t(edge.*end) + 1];
        for (std::size_t i = 1; i < start_.size(); ++i) start_[i] += start_[i - 1];
        std::vector<std::size_t> next(start_.begin(), start_.end() - 1);
        for (std::size_t i = 0; i < edges.size(); ++i) edges_[next[std::size_t(edges[i].*end)]++] = int(i);
    }

    std::span<const int> Of(int box) const {
        const std::size_t from = start_[std::size_t(box)], to = start_[std::size_t(box) + 1];
        return {edges_.data() + from, to - from};
    }

private:
    std::vector<std::size_t> start_;
    std::vector<int> edges_;
};

} // namespace diagram
