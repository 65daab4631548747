#include "diagram/layout/SpanningTree.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace diagram {

namespace {

// Grows a forest, breadth first: from the boxes to which nothing leads, then from what isn't reached yet.
class Growing {
public:
    explicit Growing(const LayoutGraph &graph)
        : graph_(graph),
          successors_(graph.sizes.size()),
          entering_(graph.sizes.size(), 0),
          reached_(graph.sizes.size(), false) {
        forest_.sizes = graph.sizes;
        forest_.centres = graph.centres;
        forest_.lanes = graph.lanes;
        for (const LayoutEdge &edge : graph.edges) {
            if (edge.from == edge.to) continue;
            successors_[std::size_t(edge.from)].push_back(edge.to);
            ++entering_[std::size_t(edge.to)];
        }
    }

    LayoutGraph Forest() {
        std::vector<int> order(graph_.sizes.size());
        std::iota(order.begin(), order.end(), 0);
        std::ranges::stable_sort(order, {}, [this](int box) { return Place(box); });
        for (const int box : order)
            if (entering_[std::size_t(box)] == 0) Reach(box);
        Spread();
        std::ranges::stable_sort(order, {}, [this](int box) {
            return entering_[std::size_t(box)] - int(successors_[std::size_t(box)].size());
        });
        for (const int box : order) {
            if (reached_[std::size_t(box)]) continue;
            Reach(box);
            Spread();
        }
        return std::move(forest_);
    }

private:
    std::tuple<double, double> Place(int box) const {
        const QPointF &centre = graph_.centres[std::size_t(box)];
        return {centre.y(), centre.x()};
    }
    void Reach(int box) {
        reached_[std::size_t(box)] = true;
        open_.push_back(box);
    }
    void Spread() {
        for (; next_ < open_.size(); ++next_) {
            const int from = open_[next_];
            for (const int to : successors_[std::size_t(from)]) {
                if (reached_[std::size_t(to)]) continue;
                forest_.edges.push_back({from, to});
                Reach(to);
            }
        }
    }

    const LayoutGraph &graph_;
    LayoutGraph forest_;
    std::vector<std::vector<int>> successors_;
    std::vector<int> entering_;
    std::vector<bool> reached_;
    std::vector<int> open_;
    std::size_t next_ = 0;
};

// Whether going on from parent to parent always comes to an end.
bool EndsAtRoots(const std::vector<int> &parents) {
    std::vector<std::size_t> walkedBy(parents.size(), parents.size());
    for (std::size_t first = 0; first < parents.size(); ++first)
        for (int box = int(first); box >= 0; box = parents[std::size_t(box)]) {
            std::size_t &walk = walkedBy[std::size_t(box)];
            if (walk == first) return false;
            if (walk < parents.size()) break;
            walk = first;
        }
    return true;
}

} // namespace

bool IsForest(const LayoutGraph &graph) {
    std::vector<int> parents(graph.sizes.size(), -1);
    for (const LayoutEdge &edge : graph.edges) {
        int &parent = parents[std::size_t(edge.to)];
        if (edge.from == edge.to || (parent >= 0 && parent != edge.from)) return false;
        parent = edge.from;
    }
    return EndsAtRoots(parents);
}

LayoutGraph SpanningForest(const LayoutGraph &graph) { return Growing(graph).Forest(); }

} // namespace diagram
