#include "diagram/layout/LayeredRanks.h"

#include "diagram/layout/EdgeLists.h"

#include <algorithm>
#include <limits>
#include <queue>

namespace diagram {

namespace {

constexpr int kNone = -1;
constexpr int kCandidates = 30;             // edges to leave that are compared before the best of them goes
constexpr std::size_t kSteps = 400'000'000; // then the layers are good enough

std::size_t At(int i) { return std::size_t(i); }

// Each box as high up as its edges let it.
std::vector<int> HighestRanks(int boxes, const std::vector<RankEdge> &edges) {
    const EdgeLists out(boxes, edges, &RankEdge::from);
    std::vector<int> rank(At(boxes)), waits(At(boxes)), ready;
    for (const RankEdge &edge : edges) ++waits[At(edge.to)];
    for (int box = 0; box < boxes; ++box)
        if (waits[At(box)] == 0) ready.push_back(box);
    for (std::size_t next = 0; next < ready.size(); ++next) {
        for (const int i : out.Of(ready[next])) {
            const RankEdge &edge = edges[At(i)];
            rank[At(edge.to)] = std::max(rank[At(edge.to)], rank[At(edge.from)] + edge.length);
            if (--waits[At(edge.to)] == 0) ready.push_back(edge.to);
        }
    }
    return rank;
}

// A spanning tree of edges without slack. The tree grows by the edge that needs the least shift of all of it.
class TightTree {
public:
    TightTree(std::vector<int> &rank, const std::vector<RankEdge> &edges, const EdgeLists &out,
              const EdgeLists &in)
        : rank_(rank), edges_(edges), out_(out), in_(in), taken_(rank.size()), tree_(edges.size()) {
        Take(0);
        while (count_ < rank.size()) Grow();
        for (int &at : rank_) at += shift_;
    }
    std::vector<char> Edges() && { return std::move(tree_); }

private:
    using Entry = std::pair<int, int>; // slack without the shift, edge
    using Heap = std::priority_queue<Entry, std::vector<Entry>, std::greater<>>;

    void Take(int box) {
        taken_[At(box)] = 1;
        rank_[At(box)] -= shift_;
        ++count_;
        for (const int edge : out_.Of(box)) Offer(leaving_, edge, edges_[At(edge)].to);
        for (const int edge : in_.Of(box)) Offer(coming_, edge, edges_[At(edge)].from);
    }
    void Offer(Heap &heap, int edge, int other) {
        if (!taken_[At(other)]) heap.emplace(Slack(edge), edge);
    }
    int Slack(int edge) const {
        const RankEdge &way = edges_[At(edge)];
        return rank_[At(way.to)] - rank_[At(way.from)] - way.length;
    }
    int Least(Heap &heap, int RankEdge::*outer, int shift) {
        while (!heap.empty() && taken_[At(edges_[At(heap.top().second)].*outer)]) heap.pop();
        return heap.empty() ? std::numeric_limits<int>::max() : heap.top().first + shift;
    }
    void Grow() {
        const int down = Least(leaving_, &RankEdge::to, -shift_);
        const int up = Least(coming_, &RankEdge::from, shift_);
        const int edge = down <= up ? leaving_.top().second : coming_.top().second;
        shift_ += down <= up ? down : -up;
        tree_[At(edge)] = 1;
        Take(down <= up ? edges_[At(edge)].to : edges_[At(edge)].from);
    }

    std::vector<int> &rank_; // of boxes in the tree without the shift
    const std::vector<RankEdge> &edges_;
    const EdgeLists &out_, &in_;
    std::vector<char> taken_, tree_;
    Heap leaving_, coming_;
    std::size_t count_ = 0;
    int shift_ = 0;
};

class Simplex {
public:
    Simplex(int boxes, const std::vector<RankEdge> &edges, Patience &patience)
        : edges_(edges),
          patience_(patience),
          out_(boxes, edges, &RankEdge::from),
          in_(boxes, edges, &RankEdge::to),
          rank_(HighestRanks(boxes, edges)),
          tree_(rank_.size()),
          box_(rank_.size()) {
        const std::vector<char> tight = TightTree(rank_, edges, out_, in_).Edges();
        for (std::size_t i = 0; i < tight.size(); ++i)
            if (tight[i])
                tree_[At(edges[i].from)].push_back(int(i)), tree_[At(edges[i].to)].push_back(int(i));
        Number(0, 0);
    }

    std::vector<int> Solve(bool balanced) && {
        for (int box = ToLeave(); box != kNone && steps_ < kSteps; box = ToLeave()) Exchange(box);
        if (balanced) Balance();
        const int top = *std::ranges::min_element(rank_);
        for (int &rank : rank_) rank -= top;
        return std::move(rank_);
    }

private:
    // A box as the tree has it. Boxes are numbered when the walk leaves them, those below a box from `low`
    // on.
    struct Box {
        int edge = kNone; // to its parent
        int low = 0, number = 0;
        int surplus = 0; // weight that leaves it and all below it, less what comes in
    };

    int Parent(int box) const { return Other(box_[At(box)].edge, box); }
    int Other(int edge, int box) const {
        const RankEdge &way = edges_[At(edge)];
        return way.from == box ? way.to : way.from;
    }
    bool IsBelow(int box, int top) const {
        return box_[At(top)].low <= box_[At(box)].number && box_[At(box)].number <= box_[At(top)].number;
    }
    int Slack(int edge) const {
        const RankEdge &way = edges_[At(edge)];
        return rank_[At(way.to)] - rank_[At(way.from)] - way.length;
    }
    bool IsTail(int box) const { return edges_[At(box_[At(box)].edge)].from == box; }
    // Less than nothing if the sum shrinks when the edge to the parent gets longer.
    int Cut(int box) const { return IsTail(box) ? box_[At(box)].surplus : -box_[At(box)].surplus; }

    void Spend(std::size_t steps) {
        steps_ += steps;
        patience_.Spend(steps);
    }

    // Numbers `top` and all below it from `low` on.
    void Number(int top, int low) {
        struct Level {
            int box;
            std::size_t next;
        };
        std::vector<Level> path{{top, 0}};
        int number = low;
        Enter(top, box_[At(top)].edge, number);
        while (!path.empty()) {
            const int box = path.back().box;
            if (path.back().next < tree_[At(box)].size()) {
                const int edge = tree_[At(box)][path.back().next++];
                if (edge == box_[At(box)].edge) continue;
                Enter(Other(edge, box), edge, number);
                path.push_back({Other(edge, box), 0});
                continue;
            }
            box_[At(box)].number = number++;
            path.pop_back();
            if (!path.empty()) box_[At(path.back().box)].surplus += box_[At(box)].surplus;
        }
        Spend(std::size_t(number - low));
    }
    void Enter(int box, int edge, int low) {
        int surplus = 0;
        for (const int i : out_.Of(box)) surplus += edges_[At(i)].weight;
        for (const int i : in_.Of(box)) surplus -= edges_[At(i)].weight;
        box_[At(box)] = {edge, low, 0, surplus};
    }

    // The box whose edge to its parent leaves the tree.
    int ToLeave() {
        int best = kNone, found = 0;
        for (std::size_t looked = 0; looked < box_.size() && found < kCandidates; ++looked) {
            const int box = next_;
            next_ = (next_ + 1) % int(box_.size());
            if (box_[At(box)].edge == kNone || Cut(box) >= 0) continue;
            ++found;
            if (best == kNone || Cut(box) < Cut(best)) best = box;
        }
        Spend(10);
        return best;
    }

    // All boxes below, `box` first.
    std::vector<int> Below(int box) {
        std::vector<int> below{box};
        for (std::size_t i = 0; i < below.size(); ++i)
            for (const int edge : tree_[At(below[i])])
                if (edge != box_[At(below[i])].edge) below.push_back(Other(edge, below[i]));
        Spend(below.size());
        return below;
    }
    // The edge with the least slack that leads from the head's side of the tree to the tail's.
    int ToEnter(int box, const std::vector<int> &below) const {
        const EdgeLists &lists = IsTail(box) ? in_ : out_;
        int best = kNone;
        for (const int inner : below)
            for (const int edge : lists.Of(inner))
                if (!IsBelow(Other(edge, inner), box) && (best == kNone || Slack(edge) < Slack(best)))
                    best = edge;
        return best;
    }
    void Exchange(int box) {
        const std::vector<int> below = Below(box);
        const int leaving = box_[At(box)].edge, entering = ToEnter(box, below);
        const int shift = IsTail(box) ? -Slack(entering) : Slack(entering);
        for (const int inner : below) rank_[At(inner)] += shift;
        const RankEdge &way = edges_[At(entering)];
        int top = way.from;
        while (!IsBelow(way.to, top)) top = Parent(top);
        Drop(leaving);
        tree_[At(way.from)].push_back(entering), tree_[At(way.to)].push_back(entering);
        Number(top, box_[At(top)].low);
    }
    void Drop(int edge) {
        std::erase(tree_[At(edges_[At(edge)].from)], edge);
        std::erase(tree_[At(edges_[At(edge)].to)], edge);
    }

    // Boxes that cost the same in several layers go to the emptiest of these.
    void Balance() {
        const auto [top, bottom] = std::ranges::minmax_element(rank_);
        const int first = *top;
        std::vector<int> crowd(At(*bottom - first + 1));
        for (const int rank : rank_) ++crowd[At(rank - first)];
        for (int box = 0; box < int(rank_.size()); ++box) BalanceBox(box, first, crowd);
    }
    void BalanceBox(int box, int first, std::vector<int> &crowd) {
        int highest = std::numeric_limits<int>::min(), lowest = std::numeric_limits<int>::max(), weight = 0;
        for (const int i : in_.Of(box)) {
            highest = std::max(highest, rank_[At(edges_[At(i)].from)] + edges_[At(i)].length);
            weight += edges_[At(i)].weight;
        }
        for (const int i : out_.Of(box)) {
            lowest = std::min(lowest, rank_[At(edges_[At(i)].to)] - edges_[At(i)].length);
            weight -= edges_[At(i)].weight;
        }
        if (weight != 0 || in_.Of(box).empty() || out_.Of(box).empty()) return;
        int best = rank_[At(box)];
        for (int rank = highest; rank <= lowest; ++rank)
            if (crowd[At(rank - first)] + 1 < crowd[At(best - first)]) best = rank;
        --crowd[At(rank_[At(box)] - first)], ++crowd[At(best - first)];
        rank_[At(box)] = best;
    }

    const std::vector<RankEdge> &edges_;
    Patience &patience_;
    EdgeLists out_, in_;
    std::vector<int> rank_;
    std::vector<std::vector<int>> tree_; // the tree's edges at each box
    std::vector<Box> box_;
    int next_ = 0;
    std::size_t steps_ = 0;
};

} // namespace

std::vector<int> RankBoxes(int boxes, const std::vector<RankEdge> &edges, bool balanced, Patience &patience) {
    if (boxes < 2) return std::vector<int>(At(boxes), 0);
    return Simplex(boxes, edges, patience).Solve(balanced);
}

} // namespace diagram
