#include "diagram/shapes/Nudging.h"

#include "diagram/shapes/NudgeBends.h"
#include "diagram/shapes/NudgeOrder.h"
#include "diagram/shapes/NudgeSpacing.h"
#include "diagram/shapes/RouterOrthogonal.h"

#include <cmath>

namespace diagram {

namespace {

constexpr int kRounds = 2;   // of the upright lanes and the level ones
constexpr double kMoved = 1; // twips; less isn't worth a change

class Nudger {
public:
    explicit Nudger(std::span<const NudgedLink> links) : links_(links) {
        for (const NudgedLink &link : links) routes_.push_back(WorkOn(link));
        before_.reserve(routes_.size());
        for (const NudgedRoute &route : routes_) before_.push_back(route.lanes);
    }

    std::vector<std::vector<Point>> Run() {
        for (int i = 0; i < kRounds; ++i)
            for (const bool level : {false, true}) MoveLanes(level);
        std::vector<std::vector<Point>> result;
        for (std::size_t i = 0; i < links_.size(); ++i) result.push_back(RouteOf(i));
        return result;
    }

private:
    void MoveLanes(bool level) {
        for (std::size_t i = 0; i < routes_.size(); ++i) FindRuns(links_[i], i, routes_[i]);
        const std::vector<NudgeLane> lanes = LanesOf(links_, routes_, level);
        const std::vector<LanePair> pairs = OrderPairs(links_, routes_, lanes);
        const std::vector<std::size_t> order = OrderLanes(lanes, pairs);
        const std::vector<double> at = Space(lanes, pairs, order);
        for (std::size_t i = 0; i < order.size(); ++i) Move(lanes[order[i]], at[i]);
        for (std::size_t i = 0; i < routes_.size(); ++i) PutJogsBetween(i);
    }

    static std::vector<double> Space(const std::vector<NudgeLane> &lanes, const std::vector<LanePair> &pairs,
                                     const std::vector<std::size_t> &order) {
        std::vector<WishedPlace> places;
        std::vector<std::size_t> ranks(order.size());
        for (std::size_t i = 0; i < order.size(); ++i) {
            const NudgeLane &lane = lanes[order[i]];
            places.push_back({lane.wish, lane.room.low, lane.room.high});
            ranks[order[i]] = i;
        }
        std::vector<PlaceDistance> distances;
        for (const LanePair &pair : pairs) {
            const auto [before, after] = std::minmax(ranks[pair.before], ranks[pair.after]);
            distances.push_back({before, after, kApart});
        }
        return SpaceOut(places, std::move(distances));
    }

    void Move(const NudgeLane &lane, double at) {
        if (std::abs(lane.at - at) < kMoved) at = lane.at;
        for (const diagram::Run *run : lane.runs) {
            NudgedRoute &route = routes_[run->route];
            if (route.directions.empty()) continue;
            for (std::size_t i = run->first; i <= run->last; ++i)
                if (IsHorizontal(route.directions[i]) == run->level) route.lanes[i] = at;
        }
    }

    // A segment without length lies on the run that it is part of.
    void PutJogsBetween(std::size_t position) {
        NudgedRoute &route = routes_[position];
        for (std::size_t i = 1; i + 1 < route.directions.size(); ++i) {
            if (std::abs(route.lanes[i - 1] - route.lanes[i + 1]) >= kMoved) continue;
            const double from = Beginning(position, i), to = Ending(position, i);
            if ((route.lanes[i] - from) * (route.lanes[i] - to) > 0) route.lanes[i] = (from + to) / 2;
        }
    }
    // Where the run begins in which segment i lies, and where it ends.
    double Beginning(std::size_t position, std::size_t i) const {
        const Coordinates &lanes = routes_[position].lanes;
        return i > 1 ? lanes[i - 2] : EdgeTowards(position, links_[position].request.source, i, lanes[i]);
    }
    double Ending(std::size_t position, std::size_t i) const {
        const NudgedRoute &route = routes_[position];
        if (i + 2 < route.directions.size()) return route.lanes[i + 2];
        return EdgeTowards(position, links_[position].request.destination, i, route.lanes[i]);
    }
    double EdgeTowards(std::size_t position, const RouteEnd &end, std::size_t i, double at) const {
        const Span box = SpanOf(end.box, !IsHorizontal(routes_[position].directions[i]));
        return std::clamp(at, box.low, box.high);
    }

    std::vector<Point> RouteOf(std::size_t position) const {
        const NudgedLink &link = links_[position];
        const NudgedRoute &route = routes_[position];
        const std::vector<Point> old(link.request.old.begin(), link.request.old.end());
        if (route.directions.empty() || route.lanes == before_[position]) return old;
        const Track former = TrackOf(link.request, route.directions, before_[position]);
        const Track now = TrackOf(link.request, route.directions, route.lanes);
        if (!MeetsNoMore(link.request, former, now)) return old;
        return JoinLanes(link.request, route.directions, route.lanes);
    }

    std::span<const NudgedLink> links_;
    std::vector<NudgedRoute> routes_;
    std::vector<Coordinates> before_;
};

} // namespace

std::vector<Point> WithoutStairs(const RouteRequest &request) {
    const NudgedLink link{request};
    const NudgedRoute route = WorkOn(link);
    if (!route.directions.empty() && request.mostAside == 0) {
        const Coordinates lanes = WithFewestBends(request, route.directions, route.lanes);
        if (lanes != route.lanes) return JoinLanes(request, route.directions, lanes);
    }
    return {request.old.begin(), request.old.end()};
}

std::vector<std::vector<Point>> Nudge(std::span<const NudgedLink> links) { return Nudger(links).Run(); }

} // namespace diagram
