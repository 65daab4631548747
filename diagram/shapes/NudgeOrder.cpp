#include "diagram/shapes/NudgeOrder.h"

#include <algorithm>
#include <cmath>
#include <queue>

namespace diagram {

namespace {

constexpr double kTouch = 60;       // twips between the ends of two runs that count as beside each other
constexpr double kSameTree = 75;    // twips that runs of one route or tree may share without counting so
constexpr double kOneChannel = 450; // twips; lanes farther from each other stay in their order
constexpr double kSamePlace = 1;    // twips

class PairFinder {
public:
    PairFinder(std::span<const NudgedLink> links, const std::vector<NudgedRoute> &routes,
               const std::vector<NudgeLane> &lanes)
        : links_(links), routes_(routes), lanes_(lanes) {}

    std::vector<LanePair> Find() {
        std::vector<std::size_t> order(lanes_.size());
        for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
        std::ranges::stable_sort(order, {}, [this](std::size_t i) { return lanes_[i].room.low; });
        std::vector<LanePair> pairs;
        for (std::size_t i = 0; i < order.size(); ++i)
            for (std::size_t j = i + 1; j < order.size(); ++j) {
                if (lanes_[order[j]].room.low > lanes_[order[i]].room.high + kApart) break;
                Consider(std::min(order[i], order[j]), std::max(order[i], order[j]), pairs);
            }
        return pairs;
    }

private:
    void Consider(std::size_t one, std::size_t other, std::vector<LanePair> &pairs) const {
        const NudgeLane &a = lanes_[one], &b = lanes_[other];
        if ((a.IsFixed() && b.IsFixed()) || !AreBeside(a, b)) return;
        if (IsLower(a, b)) {
            pairs.push_back({one, other});
        } else {
            pairs.push_back({other, one});
        }
    }

    bool AreBeside(const NudgeLane &a, const NudgeLane &b) const {
        for (const Run *run : a.runs)
            for (const Run *other : b.runs)
                if (AreBeside(*run, *other)) return true;
        return false;
    }
    bool AreBeside(const Run &run, const Run &other) const {
        const double shared = std::min(run.High(), other.High()) - std::max(run.Low(), other.Low());
        return shared > (AreOfOneTree(run, other) ? kSameTree : -kTouch);
    }
    bool AreOfOneTree(const Run &run, const Run &other) const {
        if (run.route == other.route) return true;
        const NudgedLink &a = links_[run.route], &b = links_[other.route];
        return a.source == b.source && a.look == b.look && a.request.style == b.request.style && !a.stays &&
               !b.stays && a.request.mostAside == 0 && b.request.mostAside == 0;
    }

    bool IsLower(const NudgeLane &a, const NudgeLane &b) const {
        const bool canBeLower = a.room.low + kApart <= b.room.high;
        const bool canBeHigher = b.room.low + kApart <= a.room.high;
        if (canBeLower != canBeHigher) return canBeLower;
        const double off = a.at - b.at;
        if (std::abs(off) < kOneChannel)
            if (const int turning = Turnings(a, b)) return turning < 0;
        return std::abs(off) < kSamePlace || off < 0;
    }
    int Turnings(const NudgeLane &a, const NudgeLane &b) const {
        int sum = 0;
        for (const Run *run : a.runs)
            for (const Run *other : b.runs)
                if (run->route != other->route && AreBeside(*run, *other))
                    sum += Turning(routes_, *run, *other, false) + Turning(routes_, *run, *other, true);
        return sum;
    }

    std::span<const NudgedLink> links_;
    const std::vector<NudgedRoute> &routes_;
    const std::vector<NudgeLane> &lanes_;
};

// Topological sorting: takes the lowest of the lanes that wait for no other one; where all do, as pairs form
// a ring, the lowest of all.
class LaneSorter {
public:
    LaneSorter(const std::vector<NudgeLane> &lanes, const std::vector<LanePair> &pairs)
        : lanes_(lanes), after_(lanes.size()), waits_(lanes.size()), placed_(lanes.size()) {
        for (const LanePair &pair : pairs) {
            after_[pair.before].push_back(pair.after);
            ++waits_[pair.after];
        }
    }

    std::vector<std::size_t> Sort() {
        for (std::size_t i = 0; i < lanes_.size(); ++i)
            if (waits_[i] == 0) ready_.push(KeyOf(i));
        while (order_.size() < lanes_.size()) {
            if (ready_.empty()) ready_.push(KeyOf(LowestLeft()));
            const std::size_t next = ready_.top().second;
            ready_.pop();
            if (!placed_[next]) Place(next);
        }
        return std::move(order_);
    }

private:
    using Key = std::pair<double, std::size_t>;
    Key KeyOf(std::size_t lane) const { return {lanes_[lane].at, lane}; }

    std::size_t LowestLeft() const {
        std::size_t lowest = lanes_.size();
        for (std::size_t i = 0; i < lanes_.size(); ++i)
            if (!placed_[i] && (lowest == lanes_.size() || KeyOf(i) < KeyOf(lowest))) lowest = i;
        return lowest;
    }
    void Place(std::size_t lane) {
        placed_[lane] = true;
        order_.push_back(lane);
        for (const std::size_t next : after_[lane])
            if (--waits_[next] == 0 && !placed_[next]) ready_.push(KeyOf(next));
    }

    const std::vector<NudgeLane> &lanes_;
    std::vector<std::vector<std::size_t>> after_;
    std::vector<int> waits_; // how many lanes must be placed before each
    std::vector<bool> placed_;
    std::priority_queue<Key, std::vector<Key>, std::greater<>> ready_;
    std::vector<std::size_t> order_;
};

} // namespace

std::vector<LanePair> OrderPairs(std::span<const NudgedLink> links, const std::vector<NudgedRoute> &routes,
                                 const std::vector<NudgeLane> &lanes) {
    return PairFinder(links, routes, lanes).Find();
}

std::vector<std::size_t> OrderLanes(const std::vector<NudgeLane> &lanes, const std::vector<LanePair> &pairs) {
    return LaneSorter(lanes, pairs).Sort();
}

} // namespace diagram
