#include "diagram/layout/Parts.h"

#include <numeric>

namespace diagram {

namespace {

// Which boxes hang together.
class Union {
public:
    explicit Union(std::size_t count) : parent_(count) { std::iota(parent_.begin(), parent_.end(), 0); }
    int Find(int box) {
        int &parent = parent_[std::size_t(box)];
        while (parent != parent_[std::size_t(parent)]) parent = parent_[std::size_t(parent)];
        return parent;
    }
    void Join(int a, int b) {
        const int first = Find(a), second = Find(b);
        parent_[std::size_t(std::max(first, second))] = std::min(first, second);
    }

private:
    std::vector<int> parent_;
};

} // namespace

std::vector<LayoutPart> PartsOf(const LayoutGraph &graph) {
    Union joined(graph.sizes.size());
    for (const LayoutEdge &edge : graph.edges) joined.Join(edge.from, edge.to);
    std::vector<LayoutPart> parts;
    std::vector<int> part(graph.sizes.size()), number(graph.sizes.size());
    for (std::size_t i = 0; i < graph.sizes.size(); ++i) {
        const int root = joined.Find(int(i));
        if (root == int(i)) part[i] = int(parts.size()), parts.emplace_back();
        LayoutPart &mine = parts[std::size_t(part[i] = part[std::size_t(root)])];
        number[i] = int(mine.boxes.size());
        mine.boxes.push_back(int(i));
        mine.graph.sizes.push_back(graph.sizes[i]);
        mine.graph.centres.push_back(graph.centres[i]);
    }
    for (std::size_t i = 0; i < graph.edges.size(); ++i) {
        const LayoutEdge &edge = graph.edges[i];
        LayoutPart &mine = parts[std::size_t(part[std::size_t(edge.from)])];
        mine.edges.push_back(int(i));
        mine.graph.edges.push_back({number[std::size_t(edge.from)], number[std::size_t(edge.to)]});
        if (!graph.labels.empty()) mine.graph.labels.push_back(graph.labels[i]);
    }
    return parts;
}

} // namespace diagram
