#include "diagram/shapes/RouterSearch.h"

#include "diagram/shapes/RouterGrid.h"
#include "diagram/shapes/RouterLayer.h"

#include <optional>

namespace diagram {

namespace {

// By how much a route may cost more than the least possible, in the order in which these are tried.
constexpr double kDetours[] = {350, 900, 3000};
constexpr double kShort = 240; // twips; a shorter segment looks like a slip
// Costs in twips.
constexpr double kUnderHead = 20000; // of a bend under an arrow head
constexpr double kNoLength = 3000;   // of a segment without length
constexpr double kTwipShort = 8;     // of each twip that a segment between two others is too short
constexpr double kTwipShortEnd = 3;  // the same of the first and the last
constexpr double kEndOff = 2;        // of each twip that an end lies off its preferred lane
constexpr double kInnerOff = 0.05;   // the same for the lanes between

double Distance(const Span &a, const Span &b) { return std::max({0.0, b.low - a.high, a.low - b.high}); }

// How much of a route is left at least from a place on, by one of its coordinates.
struct Remoteness {
    double distance;   // from the end of the route
    std::size_t rings; // round the box of the destination that are still to be crossed
};

class Search {
public:
    Search(const RouteRequest &request, std::string_view directions, const Coordinates &preferred,
           std::span<const QRectF> obstacles)
        : request_(request),
          directions_(directions),
          preferred_(preferred),
          grid_(request, directions, preferred, obstacles),
          exits_(DoorsOf(request.source, 0)),
          entries_(DoorsOf(request.destination, directions.size() - 1)),
          left_{RemotenessOf(false), RemotenessOf(true)} {
        for (std::size_t i = 0; i < directions.size(); ++i) mayLie_[i] = PlacesFor(i);
    }

    // While there is a short route, or one that runs into little, costlier ones needn't be followed.
    Coordinates Run(SearchBound &bound) {
        const double least = Least();
        const std::array<double, 7> bounds{least + kDetours[0],
                                           least + kDetours[1],
                                           least + kDetours[2],
                                           kThrough,
                                           2 * kThrough,
                                           4 * kThrough,
                                           kNever};
        for (; bound.tried < bounds.size(); ++bound.tried) {
            most_ = bounds[bound.tried];
            bound.runsThrough = most_ > kThrough;
            layers_.clear();
            Start();
            for (std::size_t i = 1; i + 1 < directions_.size(); ++i) Continue(i);
            if (const std::optional<Coordinates> lanes = Finish()) return *lanes;
        }
        return preferred_;
    }

private:
    bool Level(std::size_t segment) const { return IsHorizontal(directions_[segment]); }
    const std::vector<double> &Lanes(std::size_t segment) const { return grid_.Lanes(Level(segment)); }

    std::vector<Remoteness> RemotenessOf(bool level) const {
        const Span box = SpanOf(request_.destination.box, !level);
        std::vector<Remoteness> left;
        for (const double lane : grid_.Lanes(level))
            left.push_back({DistanceLeft(box, lane, level), RingsBeyond(box, lane)});
        return left;
    }
    // Along the last segment as far as its box, which it reaches from outside; across it as far as the lane
    // that it prefers, as another costs more than going there.
    double DistanceLeft(const Span &box, double lane, bool level) const {
        const std::size_t last = directions_.size() - 1;
        if (Level(last) == level) return std::abs(lane - preferred_[last]);
        if (box.Holds(lane)) return std::min(lane - box.low, box.high - lane) + kShort;
        return Distance(box, {lane, lane});
    }
    // What the rest of a route costs at least behind a segment. Each segment that is left counts as kShort at
    // least, as a shorter one costs more than it saves.
    double Left(std::size_t segment, const Remoteness &lane, const Remoteness &stop) const {
        const std::size_t after = directions_.size() - 1 - segment, alike = after / 2;
        return std::max(lane.distance, double(after - alike) * kShort) +
               std::max(stop.distance, double(alike) * kShort) + kTolls[std::max(lane.rings, stop.rings)];
    }
    double Left(std::size_t segment, std::size_t lane, std::size_t stop) const {
        return Left(segment, left_[Level(segment)][lane], left_[!Level(segment)][stop]);
    }

    // For each lane whether the segment may lie there.
    std::vector<char> PlacesFor(std::size_t segment) const {
        const std::vector<double> &lanes = Lanes(segment);
        std::vector<char> may(lanes.size());
        for (std::size_t i = 0; i < lanes.size(); ++i) {
            may[i] = grid_.IsLane(Level(segment), i) &&
                     (segment != 0 || FitsEnd(request_.source, lanes[i], 0)) &&
                     (segment + 1 != directions_.size() || FitsEnd(request_.destination, lanes[i], segment));
        }
        return may;
    }
    bool FitsEnd(const RouteEnd &end, double lane, std::size_t segment) const {
        if (lane == preferred_[segment]) return true;
        return LanesThrough(SpanOf(end.box, !Level(segment))).Holds(lane);
    }
    bool MayLie(std::size_t segment, std::size_t lane) const { return mayLie_[segment][lane]; }
    double Deviation(std::size_t segment, std::size_t lane) const {
        const bool isEnd = segment == 0 || segment + 1 == directions_.size();
        return std::abs(Lanes(segment)[lane] - preferred_[segment]) * (isEnd ? kEndOff : kInnerOff);
    }

    // Where an end segment leaves its box: through one of the two edges across it.
    struct Doors {
        Span box;
        std::size_t low, high; // as stops
    };
    Doors DoorsOf(const RouteEnd &end, std::size_t segment) const {
        const bool level = Level(segment);
        const Span box = SpanOf(end.box, level);
        return {box, grid_.Find(!level, box.low), grid_.Find(!level, box.high)};
    }

    // Of an end segment between its box and the lane of its neighbour; `leaves`: it is the first one.
    double EndCost(const RouteEnd &end, const Doors &doors, std::size_t segment, std::size_t lane,
                   std::size_t stop, bool leaves) const {
        const bool level = Level(segment);
        const double at = grid_.Lanes(!level)[stop];
        if (doors.box.Holds(at)) return kThrough + kNoLength;
        const bool below = at < doors.box.low;
        const double length = std::abs(at - (below ? doors.box.low : doors.box.high));
        const std::size_t door = below ? doors.low : doors.high;
        const LaneTable &table = grid_.Table(level);
        double cost = leaves ? table.Between(lane, door, stop) : table.Between(lane, stop, door);
        if (end.head > 0 && length < end.head + kHeadRoom) cost += kUnderHead;
        if (length < kShort) cost += kTwipShortEnd * (kShort - length);
        return cost;
    }

    double StartCost(std::size_t a, std::size_t b) const {
        return Deviation(0, a) + EndCost(request_.source, exits_, 0, a, b, true);
    }
    double Least() const {
        double least = kNever;
        for (std::size_t a = 0; a < Lanes(0).size(); ++a) {
            if (!MayLie(0, a)) continue;
            for (std::size_t b = 0; b < Lanes(1).size(); ++b)
                if (MayLie(1, b)) least = std::min(least, StartCost(a, b) + Left(0, a, b));
        }
        return least;
    }

    void Start() {
        RouteLayer layer(Lanes(0).size(), Lanes(1).size());
        for (std::size_t a = 0; a < Lanes(0).size(); ++a) {
            if (!MayLie(0, a)) continue;
            for (std::size_t b = 0; b < Lanes(1).size(); ++b) {
                if (!MayLie(1, b)) continue;
                const double cost = StartCost(a, b);
                if (cost + Left(0, a, b) < most_) layer.Offer(a, b, cost, 0);
            }
        }
        layers_.push_back(std::move(layer));
    }

    void Continue(std::size_t segment) {
        const RouteLayer &in = layers_.back();
        RouteLayer out(Lanes(segment).size(), Lanes(segment + 1).size());
        for (std::size_t lane = 0; lane < Lanes(segment).size(); ++lane) {
            const Arrivals arriving(in, lane);
            if (arriving.stops.IsEmpty()) continue;
            Stay(segment, lane, arriving, out);
            Sweep<true>(segment, lane, arriving, out);
            Sweep<false>(segment, lane, arriving, out);
        }
        layers_.push_back(std::move(out));
    }

    // The segment has no length: from each stop to the same stop.
    void Stay(std::size_t segment, std::size_t lane, const Arrivals &arriving, RouteLayer &out) const {
        const double more = kNoLength + Deviation(segment, lane);
        for (std::size_t i = arriving.stops.first; i <= arriving.stops.last; ++i) {
            const double cost = arriving[i] + more;
            if (cost + Left(segment, lane, i) < most_ && MayLie(segment + 1, i)) out.Offer(lane, i, cost, i);
        }
    }

    // From every stop to every one behind it, in one direction along the lane. Far stops, at kShort or more,
    // are offered as one, the cheapest; near ones cost more by how much too short the segment is.
    template <bool kRising>
    void Sweep(std::size_t segment, std::size_t lane, const Arrivals &arriving, RouteLayer &out) const {
        const double *stops = Lanes(segment + 1).data();
        const std::size_t count = Lanes(segment + 1).size();
        const auto at = [count](std::size_t step) { return kRising ? step : count - 1 - step; };
        const LaneTable &table = grid_.Table(Level(segment));
        const double *costs = kRising ? table.Rising(lane) : table.Falling(lane);
        const auto along = [&](std::size_t step) { return kRising ? costs[at(step)] : -costs[at(step)]; };
        const auto come = [&](std::size_t step) { return arriving[at(step)] - along(step); };
        const Remoteness *left = left_[!Level(segment)].data();
        const std::size_t first = at(kRising ? arriving.stops.first : arriving.stops.last);
        const std::size_t last = at(kRising ? arriving.stops.last : arriving.stops.first);
        const double deviation = Deviation(segment, lane);
        double least = kNever; // of all that come in behind
        BestStop far;
        std::size_t passed = first; // steps that are far behind, or that can't be gone on from
        for (std::size_t step = first + 1; step < count; ++step) {
            const std::size_t here = at(step);
            if (along(step) - along(step - 1) >= most_) {
                if (step > last) return;
                least = kNever, far = BestStop(), passed = step;
                continue;
            }
            if (step - 1 <= last) least = std::min(least, come(step - 1));
            if (!MayLie(segment + 1, here)) continue;
            // What is left never shrinks by more than the route behind grows.
            const double most =
                most_ - deviation - along(step) - Left(segment, left_[Level(segment)][lane], left[here]);
            if (least >= most && step > last) return;
            if (least >= most) continue;
            for (; passed < step && std::abs(stops[here] - stops[at(passed)]) >= kShort; ++passed)
                if (passed <= last) far.Offer(come(passed), at(passed));
            BestStop best = far;
            for (std::size_t near = passed; near < step && near <= last; ++near) {
                const double shorter = kShort - std::abs(stops[here] - stops[at(near)]);
                best.Offer(come(near) + kTwipShort * shorter, at(near));
            }
            if (best.cost < most) out.Offer(lane, here, best.cost + along(step) + deviation, best.stop);
        }
    }

    std::optional<Coordinates> Finish() const {
        const std::size_t last = directions_.size() - 1;
        const RouteLayer &layer = layers_.back();
        BestStop best{most_};
        for (std::size_t b = 0; b < Lanes(last).size(); ++b) {
            if (!MayLie(last, b) || layer.Reached(b).IsEmpty()) continue;
            for (std::size_t a = layer.Reached(b).first; a <= layer.Reached(b).last; ++a) {
                const double soFar = layer.Costs(b)[a];
                if (soFar < best.cost)
                    best.Offer(soFar + Deviation(last, b) +
                                   EndCost(request_.destination, entries_, last, b, a, false),
                               layer.At(a, b));
            }
        }
        if (best.cost < most_) return RouteTo(best.stop);
        return std::nullopt;
    }

    // The lanes of the best route to a bend of the last layer.
    Coordinates RouteTo(std::size_t state) const {
        Coordinates result{};
        const std::size_t last = directions_.size() - 1;
        std::size_t b = state / layers_.back().Width(), a = state % layers_.back().Width();
        result[last] = Lanes(last)[b];
        for (std::size_t segment = last; segment-- > 0;) {
            result[segment] = Lanes(segment)[a];
            const std::size_t before = layers_[segment].Before(a, b);
            b = a, a = before;
        }
        return result;
    }

    const RouteRequest &request_;
    std::string_view directions_;
    const Coordinates &preferred_;
    RouteGrid grid_;
    Doors exits_, entries_;
    std::array<std::vector<Remoteness>, 2> left_; // of upright lanes, of level ones
    std::array<std::vector<char>, kMostSegments> mayLie_;
    std::vector<RouteLayer> layers_;
    double most_ = kNever; // what costs as much is given up
};

} // namespace

Coordinates SearchLanes(const RouteRequest &request, std::string_view directions,
                        const Coordinates &preferred, std::span<const QRectF> obstacles, SearchBound &bound) {
    return Search(request, directions, preferred, obstacles).Run(bound);
}

} // namespace diagram
