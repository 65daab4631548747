#include "diagram/layout/LayeredRanks.h"

#include "diagram/layout/EdgeLists.h"

#include <algorithm>
#include <limits>
#include <queue>
#include <utility>

namespace diagram {

namespace {

constexpr int kNone = -1;
constexpr int kCandidates = 30;            // edges that are compared before the best of them leaves the tree
constexpr std::size_t kSteps = 20'000'000; // after which the layers are good enough

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
          box_(rank_.size()),
          mark_(rank_.size()) {
        const std::vector<char> tight = TightTree(rank_, edges, out_, in_).Edges();
        for (std::size_t i = 0; i < tight.size(); ++i)
            if (tight[i])
                tree_[At(edges[i].from)].push_back(int(i)), tree_[At(edges[i].to)].push_back(int(i));
        Hang();
    }

    std::vector<int> Solve(bool balanced) && {
        for (int box = ToLeave(); box != kNone && steps_ < kSteps; box = ToLeave()) Exchange(box);
        if (balanced) Balance();
        const int top = *std::ranges::min_element(rank_);
        for (int &rank : rank_) rank -= top;
        return std::move(rank_);
    }

private:
    // Of a box and all below it in the tree.
    struct Sum {
        int surplus = 0; // weight that leaves them, less what comes in
        int size = 0;
    };
    struct Box {
        int edge = kNone; // to its parent
        Sum sum;
    };

    int Parent(int box) const { return Other(box_[At(box)].edge, box); }
    int Other(int edge, int box) const {
        const RankEdge &way = edges_[At(edge)];
        return way.from == box ? way.to : way.from;
    }
    int Slack(int edge) const {
        const RankEdge &way = edges_[At(edge)];
        return rank_[At(way.to)] - rank_[At(way.from)] - way.length;
    }
    bool IsTail(int box) const { return edges_[At(box_[At(box)].edge)].from == box; }
    // Less than nothing if the sum shrinks when the edge to the parent gets longer.
    int Cut(int box) const {
        const int surplus = box_[At(box)].sum.surplus;
        return IsTail(box) ? surplus : -surplus;
    }

    void Spend(std::size_t steps) {
        steps_ += steps;
        patience_.Spend(steps);
    }

    // All boxes on the first one's side of a tree edge, marked.
    std::vector<int> SideOf(int first, int edge) {
        std::vector<int> side{first};
        mark_[At(first)] = ++stamp_;
        for (std::size_t i = 0; i < side.size(); ++i)
            for (const int next : tree_[At(side[i])])
                if (const int other = Other(next, side[i]); next != edge && mark_[At(other)] != stamp_)
                    mark_[At(other)] = stamp_, side.push_back(other);
        Spend(side.size());
        return side;
    }
    // The whole tree from box 0.
    void Hang() {
        const std::vector<int> order = SideOf(0, kNone);
        for (const RankEdge &edge : edges_) {
            box_[At(edge.from)].sum.surplus += edge.weight;
            box_[At(edge.to)].sum.surplus -= edge.weight;
        }
        std::vector<char> hangs(box_.size());
        for (const int box : order) {
            ++box_[At(box)].sum.size;
            hangs[At(box)] = 1;
            for (const int edge : tree_[At(box)])
                if (!hangs[At(Other(edge, box))]) box_[At(Other(edge, box))].edge = edge;
        }
        for (auto box = order.rbegin(); box + 1 != order.rend(); ++box)
            Add(box_[At(Parent(*box))].sum, box_[At(*box)].sum, 1);
    }
    static void Add(Sum &sum, const Sum &more, int times) {
        sum.surplus += times * more.surplus;
        sum.size += times * more.size;
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

    // The edge with the least slack that leads between the marked side and the other one, in this direction.
    int ToEnter(const std::vector<int> &side, const EdgeLists &lists) const {
        int best = kNone;
        for (const int inner : side)
            for (const int edge : lists.Of(inner))
                if (mark_[At(Other(edge, inner))] != stamp_ && (best == kNone || Slack(edge) < Slack(best)))
                    best = edge;
        return best;
    }
    // Only the smaller side of the edge that leaves is looked at and moved.
    void Exchange(int box) {
        const int leaving = box_[At(box)].edge;
        const bool below = 2 * At(box_[At(box)].sum.size) <= box_.size();
        const std::vector<int> side = SideOf(below ? box : Parent(box), leaving);
        const bool isTail = IsTail(box) == below;
        const int entering = ToEnter(side, isTail ? in_ : out_);
        const int shift = isTail ? -Slack(entering) : Slack(entering);
        for (const int inner : side) rank_[At(inner)] += shift;
        const RankEdge &way = edges_[At(entering)];
        const bool fromIsBelow = (mark_[At(way.from)] == stamp_) == below;
        Rehang(box, fromIsBelow ? way.from : way.to, entering);
        Drop(leaving);
        tree_[At(way.from)].push_back(entering), tree_[At(way.to)].push_back(entering);
    }
    // What is below `box` hangs by `inner`, one of it, on another edge.
    void Rehang(int box, int inner, int edge) {
        const Sum whole = box_[At(box)].sum;
        AddAbove(box, whole, -1);
        Sum before;
        for (int at = inner, next = edge;;) {
            const Box old = std::exchange(box_[At(at)], Box{next, whole});
            Add(box_[At(at)].sum, before, -1);
            if (at == box) break;
            before = old.sum, next = old.edge, at = Other(next, at);
        }
        AddAbove(inner, whole, 1);
    }
    void AddAbove(int box, const Sum &sum, int times) {
        std::size_t steps = 0;
        for (int at = box; box_[At(at)].edge != kNone; ++steps)
            at = Parent(at), Add(box_[At(at)].sum, sum, times);
        Spend(steps);
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
    std::vector<int> mark_; // the stamp of the side that each box was on last
    int stamp_ = 0, next_ = 0;
    std::size_t steps_ = 0;
};

} // namespace

std::vector<int> RankBoxes(int boxes, const std::vector<RankEdge> &edges, bool balanced, Patience &patience) {
    if (boxes < 2) return std::vector<int>(At(boxes), 0);
    return Simplex(boxes, edges, patience).Solve(balanced);
}

} // namespace diagram
