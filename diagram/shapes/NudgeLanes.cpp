#include "diagram/shapes/NudgeLanes.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <tuple>

namespace diagram {

namespace {

constexpr double kJog = 300;     // twips; a jog that is no wider looks like a slip
constexpr double kSameBus = 225; // twips; branches that near to each other leave the trunk at one place

// Joins runs to lanes where their rooms have a part in common. A lane is known by its first run.
class Joiner {
public:
    explicit Joiner(std::vector<Span> rooms) : rooms_(std::move(rooms)), parents_(rooms_.size()) {
        std::iota(parents_.begin(), parents_.end(), std::size_t(0));
    }
    std::size_t LaneOf(std::size_t run) const {
        while (parents_[run] != run) run = parents_[run];
        return run;
    }
    const Span &Room(std::size_t lane) const { return rooms_[lane]; }
    void Join(std::size_t one, std::size_t other) {
        one = LaneOf(one), other = LaneOf(other);
        if (one == other) return;
        const auto [first, second] = std::minmax(one, other);
        const Span both{std::max(rooms_[one].low, rooms_[other].low),
                        std::min(rooms_[one].high, rooms_[other].high)};
        if (both.low > both.high) return;
        parents_[second] = first, rooms_[first] = both;
    }

private:
    std::vector<Span> rooms_;
    std::vector<std::size_t> parents_;
};

bool MayJoin(const NudgedLink &link) { return !link.stays && link.request.mostAside == 0; }

class LaneFinder {
public:
    LaneFinder(std::span<const NudgedLink> links, const std::vector<NudgedRoute> &routes, bool level)
        : links_(links), routes_(routes), runs_(RunsOf(routes, level)), joiner_(RoomsOf()) {}

    std::vector<NudgeLane> Find() {
        JoinTrunks();
        JoinBuses();
        JoinJogs();
        std::map<std::size_t, NudgeLane> lanes;
        for (std::size_t i = 0; i < runs_.size(); ++i) {
            const std::size_t lane = joiner_.LaneOf(i);
            lanes[lane].runs.push_back(runs_[i]);
            lanes[lane].room = joiner_.Room(lane);
        }
        std::vector<NudgeLane> result;
        for (auto &[first, lane] : lanes) {
            SetWish(lane);
            result.push_back(std::move(lane));
        }
        return result;
    }

private:
    using Trunk = std::tuple<std::uint64_t, std::uint64_t, int, int>; // node, look, style, side

    static std::vector<const Run *> RunsOf(const std::vector<NudgedRoute> &routes, bool level) {
        std::vector<const Run *> runs;
        for (const NudgedRoute &route : routes)
            for (const Run &run : route.runs)
                if (run.level == level) runs.push_back(&run);
        return runs;
    }
    std::vector<Span> RoomsOf() const {
        std::vector<Span> rooms;
        for (const Run *run : runs_) rooms.push_back(RoomOf(links_[run->route], routes_[run->route], *run));
        return rooms;
    }
    bool IsFree(const Run &run) const {
        return !routes_[run.route].directions.empty() && MayJoin(links_[run.route]);
    }
    Trunk TrunkOf(const Run &run) const {
        const NudgedLink &link = links_[run.route];
        const Run &first = routes_[run.route].runs.front();
        return {link.source, link.look, link.request.style, first.Heading() * (first.level ? 2 : 1)};
    }

    void JoinTrunks() {
        std::map<Trunk, std::size_t> trunks;
        for (std::size_t i = 0; i < runs_.size(); ++i) {
            if (!runs_[i]->isSource || !IsFree(*runs_[i])) continue;
            const auto [trunk, isNew] = trunks.try_emplace(TrunkOf(*runs_[i]), i);
            if (!isNew) joiner_.Join(trunk->second, i);
        }
    }

    // The second runs of the links of one trunk, where they lie nearly on a line.
    void JoinBuses() {
        std::map<Trunk, std::vector<std::size_t>> buses;
        for (std::size_t i = 0; i < runs_.size(); ++i) {
            const Run &run = *runs_[i];
            if (run.place != 1 || run.isDestination || !IsFree(run) || !routes_[run.route].runs[0].isSource)
                continue;
            buses[TrunkOf(run)].push_back(i);
        }
        for (auto &[trunk, bus] : buses) {
            std::ranges::stable_sort(bus, {}, [this](std::size_t i) { return runs_[i]->at; });
            for (std::size_t i = 1; i < bus.size(); ++i)
                if (runs_[bus[i]]->at - runs_[bus[i - 1]]->at <= kSameBus) joiner_.Join(bus[i - 1], bus[i]);
        }
    }

    void JoinJogs() {
        for (std::size_t i = 0; i + 1 < runs_.size(); ++i) {
            const Run &run = *runs_[i], &next = *runs_[i + 1];
            if (next.route != run.route || next.place != run.place + 2 || !IsFree(run)) continue;
            if (next.Heading() == run.Heading() && std::abs(next.at - run.at) <= kJog) joiner_.Join(i, i + 1);
        }
    }

    // The wish of a lane of several links is that of their ends at the source; of one link, that of its ends;
    // without ends, that of all its runs.
    void SetWish(NudgeLane &lane) const {
        const bool shared =
            std::ranges::any_of(lane.runs, [&](const Run *run) { return run->route != lane.runs[0]->route; });
        const auto counts = [&](const Run &run) { return run.isSource || (!shared && run.isDestination); };
        const bool hasEnds = std::ranges::any_of(lane.runs, [&](const Run *run) { return counts(*run); });
        double count = 0, off = 0;
        for (const Run *run : lane.runs) {
            off += run->at - lane.runs[0]->at;
            if (hasEnds && !counts(*run)) continue;
            lane.wish += WishOf(links_[run->route], *run);
            ++count;
        }
        lane.wish = std::clamp(lane.wish / count, lane.room.low, lane.room.high);
        lane.at = lane.runs[0]->at + off / double(lane.runs.size());
    }

    std::span<const NudgedLink> links_;
    const std::vector<NudgedRoute> &routes_;
    std::vector<const Run *> runs_;
    Joiner joiner_;
};

} // namespace

std::vector<NudgeLane> LanesOf(std::span<const NudgedLink> links, const std::vector<NudgedRoute> &routes,
                               bool level) {
    return LaneFinder(links, routes, level).Find();
}

} // namespace diagram
