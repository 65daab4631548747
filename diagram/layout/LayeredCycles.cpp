#include "diagram/layout/LayeredCycles.h"

#include "diagram/layout/EdgeLists.h"

#include <algorithm>
#include <set>

namespace diagram {

namespace {

using Marks = std::vector<char>;

// A depth-first walk along the edges that notes when each box is left.
class Walk {
public:
    Walk(int boxes, const std::vector<LayoutEdge> &edges, bool sourcesFirst)
        : edges_(edges), out_(boxes, edges, &LayoutEdge::from), state_(std::size_t(boxes)) {
        Marks isEntered(std::size_t(boxes), 0);
        for (const LayoutEdge &edge : edges)
            if (sourcesFirst && edge.from != edge.to) isEntered[std::size_t(edge.to)] = 1;
        back_.resize(edges.size());
        for (const char entered : {char(0), char(1)})
            for (int box = 0; box < boxes; ++box)
                if (isEntered[std::size_t(box)] == entered && state_[std::size_t(box)] == kNew) From(box);
    }
    Marks Back() && { return std::move(back_); }

private:
    enum State : char { kNew, kOpen, kDone };

    void From(int box) {
        Open(box);
        while (!path_.empty()) {
            auto &[at, next] = path_.back();
            const auto out = out_.Of(at);
            if (next == out.size()) {
                state_[std::size_t(at)] = kDone;
                path_.pop_back();
            } else {
                Follow(out[next++]);
            }
        }
    }
    void Follow(int edge) {
        const LayoutEdge &way = edges_[std::size_t(edge)];
        if (way.from == way.to) return;
        if (state_[std::size_t(way.to)] == kOpen) back_[std::size_t(edge)] = 1;
        if (state_[std::size_t(way.to)] == kNew) Open(way.to);
    }
    void Open(int box) {
        state_[std::size_t(box)] = kOpen;
        path_.emplace_back(box, 0);
    }

    const std::vector<LayoutEdge> &edges_;
    EdgeLists out_;
    std::vector<State> state_;
    std::vector<std::pair<int, std::size_t>> path_;
    Marks back_;
};

// Takes boxes away one by one: those without ways out to the end of a row, all others to its beginning, those
// without ways in first, else the one with the most more ways out than in.
class Greedy {
public:
    Greedy(int boxes, const std::vector<LayoutEdge> &edges)
        : edges_(edges),
          out_(boxes, edges, &LayoutEdge::from),
          in_(boxes, edges, &LayoutEdge::to),
          place_(std::size_t(boxes)),
          ins_(std::size_t(boxes)),
          outs_(std::size_t(boxes)),
          gone_(std::size_t(boxes)),
          last_(boxes) {
        for (const LayoutEdge &edge : edges)
            if (edge.from != edge.to) ++outs_[std::size_t(edge.from)], ++ins_[std::size_t(edge.to)];
        for (int box = 0; box < boxes; ++box) queue_.insert(KeyOf(box));
        while (!queue_.empty()) Take(queue_.begin()->box);
    }
    Marks Back() const {
        Marks back(edges_.size());
        for (std::size_t i = 0; i < back.size(); ++i)
            back[i] = place_[std::size_t(edges_[i].from)] > place_[std::size_t(edges_[i].to)];
        return back;
    }

private:
    struct Key {
        int rank; // 0 for a box without ways out, 1 for one without ways in, 2
        int surplus;
        int box;
        auto operator<=>(const Key &) const = default;
    };

    Key KeyOf(int box) const {
        const int ins = ins_[std::size_t(box)], outs = outs_[std::size_t(box)];
        if (outs == 0 && ins > 0) return {0, 0, -box}; // the last of them to the very end
        if (ins == 0) return {1, 0, box};
        return {2, ins - outs, box};
    }
    void Take(int key) {
        const int box = std::abs(key);
        const bool atEnd = outs_[std::size_t(box)] == 0 && ins_[std::size_t(box)] > 0;
        queue_.erase(KeyOf(box));
        gone_[std::size_t(box)] = 1;
        place_[std::size_t(box)] = atEnd ? --last_ : first_++;
        for (const int edge : out_.Of(box)) Lose(ins_, edges_[std::size_t(edge)].to);
        for (const int edge : in_.Of(box)) Lose(outs_, edges_[std::size_t(edge)].from);
    }
    void Lose(std::vector<int> &counts, int box) {
        if (gone_[std::size_t(box)]) return;
        queue_.erase(KeyOf(box));
        --counts[std::size_t(box)];
        queue_.insert(KeyOf(box));
    }

    const std::vector<LayoutEdge> &edges_;
    EdgeLists out_, in_;
    std::vector<int> place_, ins_, outs_;
    Marks gone_;
    std::set<Key> queue_;
    int first_ = 0, last_;
};

} // namespace

std::vector<char> BackEdges(int boxes, const std::vector<LayoutEdge> &edges, CycleBreaking how) {
    if (how == CycleBreaking::Greedy) return Greedy(boxes, edges).Back();
    return Walk(boxes, edges, how == CycleBreaking::FromSources).Back();
}

} // namespace diagram
