#include "diagram/layout/Rows.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace diagram {

namespace {

using Lists = std::vector<std::vector<int>>;

Lists Successors(const LayoutGraph &graph) {
    Lists successors(graph.sizes.size());
    for (const LayoutEdge &edge : graph.edges)
        if (edge.from != edge.to) successors[std::size_t(edge.from)].push_back(edge.to);
    return successors;
}

std::vector<int> EnteringCounts(const Lists &successors) {
    std::vector<int> counts(successors.size(), 0);
    for (const std::vector<int> &list : successors)
        for (const int to : list) ++counts[std::size_t(to)];
    return counts;
}

// Boxes that nothing leads to first, then the others; both in the order of their places.
std::vector<int> Beginnings(const LayoutGraph &graph, const std::vector<int> &entering) {
    std::vector<int> order(graph.sizes.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, {}, [&](int box) {
        const QPointF &centre = graph.centres[std::size_t(box)];
        return std::tuple(entering[std::size_t(box)] > 0, centre.y(), centre.x());
    });
    return order;
}

// Depth first: what leads back onto the way that is being walked closes a cycle and is dropped.
class WithoutCycles {
public:
    explicit WithoutCycles(const Lists &successors) : all_(successors), kept_(successors.size()) {}

    void WalkFrom(int box) {
        if (state_[std::size_t(box)] != State::New) return;
        Enter(box);
        while (!way_.empty()) {
            auto &[at, next] = way_.back();
            const std::vector<int> &list = all_[std::size_t(at)];
            if (next == list.size()) {
                state_[std::size_t(at)] = State::Done;
                way_.pop_back();
                continue;
            }
            const int to = list[next++];
            if (state_[std::size_t(to)] == State::OnTheWay) continue;
            kept_[std::size_t(at)].push_back(to);
            if (state_[std::size_t(to)] == State::New) Enter(to);
        }
    }
    const Lists &Kept() const { return kept_; }

private:
    enum class State : unsigned char { New, OnTheWay, Done };
    void Enter(int box) {
        state_[std::size_t(box)] = State::OnTheWay;
        way_.emplace_back(box, 0);
    }

    const Lists &all_;
    Lists kept_;
    std::vector<State> state_ = std::vector<State>(all_.size(), State::New);
    std::vector<std::pair<int, std::size_t>> way_;
};

// Of each box, the number of edges on the longest way to it.
std::vector<int> LongestWays(const Lists &successors) {
    std::vector<int> missing = EnteringCounts(successors), rows(successors.size(), 0), open;
    for (std::size_t box = 0; box < missing.size(); ++box)
        if (missing[box] == 0) open.push_back(int(box));
    for (std::size_t i = 0; i < open.size(); ++i)
        for (const int to : successors[std::size_t(open[i])]) {
            rows[std::size_t(to)] = std::max(rows[std::size_t(to)], rows[std::size_t(open[i])] + 1);
            if (--missing[std::size_t(to)] == 0) open.push_back(to);
        }
    return rows;
}

} // namespace

std::vector<int> RowsAlongEdges(const LayoutGraph &graph) {
    const Lists successors = Successors(graph);
    const std::vector<int> allEntering = EnteringCounts(successors);
    WithoutCycles walk(successors);
    for (const int box : Beginnings(graph, allEntering)) walk.WalkFrom(box);
    const Lists &kept = walk.Kept();
    const std::vector<int> entering = EnteringCounts(kept);
    std::vector<int> rows = LongestWays(kept);
    for (std::size_t box = 0; box < rows.size(); ++box) {
        if (allEntering[box] == 0 && successors[box].empty()) rows[box] = -1;
        if (entering[box] > 0 || kept[box].empty()) continue;
        int nearest = rows[std::size_t(kept[box].front())];
        for (const int to : kept[box]) nearest = std::min(nearest, rows[std::size_t(to)]);
        rows[box] = nearest - 1;
    }
    return rows;
}

} // namespace diagram
