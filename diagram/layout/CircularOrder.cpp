#include "diagram/layout/Circular.h"
#include "diagram/layout/Parts.h"

#include <algorithm>

namespace diagram {

namespace {

// Depth first: without a single crossing for a tree.
std::vector<int> DepthFirst(const Adjacency &neighbours) {
    std::vector<int> order, open{0};
    std::vector<bool> seen(neighbours.size(), false);
    while (!open.empty()) {
        const int box = open.back();
        open.pop_back();
        if (seen[std::size_t(box)]) continue;
        seen[std::size_t(box)] = true;
        order.push_back(box);
        const std::vector<int> &next = neighbours[std::size_t(box)];
        open.insert(open.end(), next.rbegin(), next.rend());
    }
    return order;
}

// Sifting: one box after the other is tried at every place of the circle and put where it crosses least.
class Sifting {
public:
    Sifting(const Adjacency &neighbours, std::vector<int> order)
        : neighbours_(neighbours), order_(std::move(order)), places_(order_.size()) {}

    // False when nothing was gained.
    bool Round(Progress &progress, double from, double to) {
        long gained = 0;
        for (std::size_t box = 0; box < neighbours_.size(); ++box) {
            constexpr std::size_t kStride = 16;
            if (box % kStride == 0)
                progress.At(from + (to - from) * double(box) / double(neighbours_.size()));
            gained += Sift(int(box));
        }
        return gained > 0;
    }
    const std::vector<int> &Order() const { return order_; }

private:
    long Sift(int box) {
        const auto former = std::ranges::find(order_, box);
        const auto start = std::size_t(former - order_.begin());
        order_.erase(former);
        for (std::size_t i = 0; i < order_.size(); ++i) places_[std::size_t(order_[i])] = int(i);
        own_.clear();
        for (const int next : neighbours_[std::size_t(box)]) own_.push_back(places_[std::size_t(next)]);
        std::ranges::sort(own_);
        long change = 0, best = 0;
        std::size_t bestPlace = start;
        for (std::size_t step = 0; step < order_.size(); ++step) {
            const std::size_t at = (start + step) % order_.size();
            change += Passing(box, order_[at]);
            if (change >= best) continue;
            best = change;
            bestPlace = at + 1;
        }
        order_.insert(order_.begin() + std::ptrdiff_t(bestPlace), box);
        return -best;
    }

    // Ends of the box's edges on the circle without it, from one place up to another clockwise, both left
    // out.
    long EndsBetween(int from, int to) const {
        const auto below = [this](int place) {
            return long(std::ranges::lower_bound(own_, place) - own_.begin());
        };
        const auto past = [this](int place) {
            return long(std::ranges::upper_bound(own_, place) - own_.begin());
        };
        return from <= to ? below(to) - past(from) : long(own_.size()) - past(from) + below(to);
    }

    // How many more crossings there are once the box has passed its clockwise neighbour.
    long Passing(int box, int other) const {
        const int at = places_[std::size_t(other)];
        long change = 0;
        for (const int next : neighbours_[std::size_t(other)]) {
            if (next == box) continue;
            const int end = places_[std::size_t(next)];
            change += EndsBetween(end, at) - EndsBetween(at, end);
        }
        return change;
    }

    const Adjacency &neighbours_;
    std::vector<int> order_;
    std::vector<int> places_; // on the circle without the box that is sifted
    std::vector<int> own_;    // places of its neighbours, ascending
};

} // namespace

std::vector<int> CircularOrder(const LayoutGraph &part, Progress &progress) {
    const Adjacency neighbours = NeighboursOf(part);
    constexpr double kSteps = 4e8; // about ten seconds
    constexpr int kMostRounds = 12;
    const double stepsOfRound = double(part.sizes.size()) * double(part.sizes.size() + 2 * part.edges.size());
    const int rounds = int(std::clamp(kSteps / stepsOfRound, 1.0, double(kMostRounds)));
    Sifting sifting(neighbours, DepthFirst(neighbours));
    for (int round = 0; round < rounds; ++round)
        if (!sifting.Round(progress, double(round) / rounds, double(round + 1) / rounds)) break;
    std::vector<int> order = sifting.Order();
    std::rotate(order.begin(), std::ranges::find(order, 0), order.end());
    return order;
}

long CircularCrossings(const LayoutGraph &part, const std::vector<int> &order) {
    std::vector<int> places(order.size());
    for (std::size_t i = 0; i < order.size(); ++i) places[std::size_t(order[i])] = int(i);
    std::vector<std::pair<int, int>> chords;
    for (const LayoutEdge &edge : part.edges)
        chords.push_back(std::minmax({places[std::size_t(edge.from)], places[std::size_t(edge.to)]}));
    long count = 0;
    for (std::size_t i = 0; i < chords.size(); ++i)
        for (std::size_t k = 0; k < chords.size(); ++k)
            count += chords[i].first < chords[k].first && chords[k].first < chords[i].second &&
                     chords[i].second < chords[k].second;
    return count;
}

} // namespace diagram
