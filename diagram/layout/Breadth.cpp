#include "diagram/layout/Breadth.h"

namespace diagram {

BreadthFirst::BreadthFirst(const Adjacency &neighbours, int root)
    : depth(neighbours.size(), -1), parent(neighbours.size(), -1) {
    order.reserve(neighbours.size());
    order.push_back(root);
    depth[std::size_t(root)] = 0;
    for (std::size_t i = 0; i < order.size(); ++i)
        for (const int next : neighbours[std::size_t(order[i])]) {
            if (depth[std::size_t(next)] >= 0) continue;
            depth[std::size_t(next)] = depth[std::size_t(order[i])] + 1;
            parent[std::size_t(next)] = order[i];
            order.push_back(next);
        }
}

} // namespace diagram
