#include "diagram/shapes/RouterSearch.h"

#include "diagram/shapes/RouterGrid.h"

#include <limits>
#include <optional>

namespace diagram {

namespace {

constexpr double kNever = std::numeric_limits<double>::infinity();
// Costs above the distance that are tried first; coming near to the box at the end is 4100 of them.
constexpr double kSmallDetour = 7500;
constexpr double kUnderHead = 20000; // costs in twips: a bend under an arrow head
constexpr double kNoLength = 3000;   // a segment without length
constexpr double kShort = 240;       // twips; a shorter segment looks like a slip
constexpr double kTwipShort = 8;     // a twip that a segment between two others is shorter
constexpr double kTwipShortEnd = 3;  // the same of the first and the last
constexpr double kEndOff = 2;        // cost a twip that an end lies off its preferred lane
constexpr double kInnerOff = 0.05;   // the same for the lanes between

// A range of lanes, empty at first.
struct Range {
    std::size_t first = SIZE_MAX, last = 0;
    bool IsEmpty() const { return first > last; }
    void Extend(std::size_t lane) { first = std::min(first, lane), last = std::max(last, lane); }
};

// What is known of all bends where segment i, on lane `a` of its direction, meets segment i + 1 on lane `b`.
struct Layer {
    Layer(std::size_t lanes, std::size_t next)
        : width(lanes), cost(lanes * next, kNever), before(lanes * next), reached(next) {}
    std::size_t At(std::size_t a, std::size_t b) const { return b * width + a; }
    void Set(std::size_t a, std::size_t b, double costs, std::size_t from) {
        cost[At(a, b)] = costs;
        before[At(a, b)] = std::uint16_t(from);
        reached[b].Extend(a);
    }
    std::size_t width;
    std::vector<double> cost;
    std::vector<std::uint16_t> before; // the lane of segment i - 1 on the best way there
    std::vector<Range> reached;        // from which lanes `a` each lane `b` is reached
};

// What comes in on a lane: the cost from each of its stops.
struct Arrivals {
    Arrivals(const Layer &layer, std::size_t lane)
        : cost(&layer.cost[layer.At(0, lane)]), stops(layer.reached[lane]) {}
    double operator[](std::size_t stop) const { return cost[stop]; }
    const double *cost;
    Range stops;
};

// The least of what comes in at stops that the sweep has passed, near ones apart from far ones.
struct Best {
    double cost = kNever;
    std::size_t stop = 0;
    void Offer(double offered, std::size_t from) {
        if (offered < cost) cost = offered, stop = from;
    }
};

double Distance(const Span &a, const Span &b) { return std::max({0.0, b.low - a.high, a.low - b.high}); }

class Search {
public:
    Search(const RouteRequest &request, std::string_view directions, const Coordinates &preferred,
           std::span<const QRectF> obstacles)
        : request_(request),
          directions_(directions),
          preferred_(preferred),
          grid_(request, directions, preferred, obstacles),
          left_{DistancesLeft(false), DistancesLeft(true)} {}

    // While there is a short way, or one that runs into little, costlier ones needn't be followed.
    Coordinates Run() {
        for (const double most : {Apart() + kSmallDetour, kThrough, 2 * kThrough, 4 * kThrough, kNever}) {
            most_ = most;
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

    // How far each of the lanes lies from the box of the destination; no way there is shorter.
    std::vector<double> DistancesLeft(bool level) const {
        const Span box = SpanOf(request_.destination.box, !level);
        std::vector<double> left;
        for (const double lane : grid_.Lanes(level)) left.push_back(Distance(box, {lane, lane}));
        return left;
    }
    double Left(std::size_t segment, std::size_t lane, std::size_t stop) const {
        return left_[Level(segment)][lane] + left_[!Level(segment)][stop];
    }
    double Apart() const {
        const QRectF &a = request_.source.box, &b = request_.destination.box;
        return Distance(SpanOf(a, true), SpanOf(b, true)) + Distance(SpanOf(a, false), SpanOf(b, false));
    }

    bool MayLie(std::size_t segment, std::size_t lane) const {
        if (!grid_.IsLane(Level(segment), lane)) return false;
        const double at = Lanes(segment)[lane];
        if (segment == 0 && !FitsEnd(request_.source, at, 0)) return false;
        return segment + 1 < directions_.size() || FitsEnd(request_.destination, at, segment);
    }
    bool FitsEnd(const RouteEnd &end, double lane, std::size_t segment) const {
        if (lane == preferred_[segment]) return true;
        return LanesThrough(SpanOf(end.box, !Level(segment))).Holds(lane);
    }
    double Deviation(std::size_t segment, std::size_t lane) const {
        const bool isEnd = segment == 0 || segment + 1 == directions_.size();
        return std::abs(Lanes(segment)[lane] - preferred_[segment]) * (isEnd ? kEndOff : kInnerOff);
    }

    // An end segment between its box and the lane of its neighbour; `leaves`: the way begins with it.
    double EndCost(const RouteEnd &end, std::size_t segment, std::size_t lane, std::size_t stop,
                   bool leaves) const {
        const bool level = Level(segment);
        const Span box = SpanOf(end.box, level);
        const double at = grid_.Lanes(!level)[stop];
        if (box.Holds(at)) return kThrough + kNoLength;
        const double edge = at < box.low ? box.low : box.high;
        const double length = std::abs(at - edge);
        const std::size_t door = grid_.Find(!level, edge);
        const LaneTable &table = grid_.Table(level);
        double cost = leaves ? table.Between(lane, door, stop) : table.Between(lane, stop, door);
        if (end.head > 0 && length < end.head + kHeadRoom) cost += kUnderHead;
        if (length < kShort) cost += kTwipShortEnd * (kShort - length);
        return cost;
    }

    void Start() {
        Layer layer(Lanes(0).size(), Lanes(1).size());
        for (std::size_t a = 0; a < Lanes(0).size(); ++a) {
            if (!MayLie(0, a)) continue;
            for (std::size_t b = 0; b < Lanes(1).size(); ++b) {
                if (!MayLie(1, b)) continue;
                const double cost = Deviation(0, a) + EndCost(request_.source, 0, a, b, true);
                if (cost + Left(0, a, b) < most_) layer.Set(a, b, cost, 0);
            }
        }
        layers_.push_back(std::move(layer));
    }

    void Continue(std::size_t segment) {
        const Layer &in = layers_.back();
        Layer out(Lanes(segment).size(), Lanes(segment + 1).size());
        for (std::size_t lane = 0; lane < Lanes(segment).size(); ++lane) {
            const Arrivals arriving(in, lane);
            if (arriving.stops.IsEmpty()) continue;
            Stay(segment, lane, arriving, out);
            Sweep(segment, lane, arriving, out, true);
            Sweep(segment, lane, arriving, out, false);
        }
        layers_.push_back(std::move(out));
    }

    void Offer(std::size_t segment, std::size_t lane, std::size_t stop, double cost, std::size_t from,
               Layer &out) const {
        if (cost + Left(segment, lane, stop) >= most_ || cost >= out.cost[out.At(lane, stop)]) return;
        if (!MayLie(segment + 1, stop)) return;
        out.Set(lane, stop, cost, from);
    }

    void Stay(std::size_t segment, std::size_t lane, const Arrivals &arriving, Layer &out) const {
        const double deviation = Deviation(segment, lane);
        for (std::size_t i = arriving.stops.first; i <= arriving.stops.last; ++i)
            if (arriving[i] < kNever) Offer(segment, lane, i, arriving[i] + kNoLength + deviation, i, out);
    }

    // From every stop to every one behind it, in one direction along the lane.
    void Sweep(std::size_t segment, std::size_t lane, const Arrivals &arriving, Layer &out,
               bool rising) const {
        const std::vector<double> &stops = Lanes(segment + 1);
        const std::size_t count = stops.size();
        const LaneTable &table = grid_.Table(Level(segment));
        const double *along = rising ? table.Rising(lane) : table.Falling(lane);
        const double sign = rising ? 1 : -1, deviation = Deviation(segment, lane);
        const auto at = [&](std::size_t step) { return rising ? step : count - 1 - step; };
        const double *left = left_[!Level(segment)].data();
        const double most = most_ - deviation - left_[Level(segment)][lane];
        const std::size_t first = at(rising ? arriving.stops.first : arriving.stops.last);
        const std::size_t last = at(rising ? arriving.stops.last : arriving.stops.first);
        Best far;
        std::size_t passed = first; // steps that are far behind, or that can't be gone on from
        for (std::size_t step = first + 1; step < count; ++step) {
            const std::size_t here = at(step);
            if (std::abs(along[here] - along[at(step - 1)]) >= most_) {
                if (step > last) return;
                far = Best(), passed = step;
                continue;
            }
            for (; passed < step && std::abs(stops[here] - stops[at(passed)]) >= kShort; ++passed)
                far.Offer(arriving[at(passed)] - sign * along[at(passed)], at(passed));
            if (passed > last && far.cost + sign * along[here] >= most_) return;
            Best best = far;
            for (std::size_t near = passed; near < step; ++near) {
                if (arriving[at(near)] == kNever) continue;
                const double shorter = kShort - std::abs(stops[here] - stops[at(near)]);
                best.Offer(arriving[at(near)] - sign * along[at(near)] + kTwipShort * shorter, at(near));
            }
            if (best.cost + sign * along[here] + left[here] < most)
                Offer(segment, lane, here, best.cost + sign * along[here] + deviation, best.stop, out);
        }
    }

    std::optional<Coordinates> Finish() const {
        const std::size_t last = directions_.size() - 1;
        const Layer &layer = layers_.back();
        Best best{most_};
        for (std::size_t b = 0; b < Lanes(last).size(); ++b) {
            if (!MayLie(last, b)) continue;
            for (std::size_t a = 0; a < Lanes(last - 1).size(); ++a) {
                const double so = layer.cost[layer.At(a, b)];
                if (so < best.cost)
                    best.Offer(so + Deviation(last, b) + EndCost(request_.destination, last, b, a, false),
                               layer.At(a, b));
            }
        }
        if (best.cost < most_) return WayTo(best.stop);
        return std::nullopt;
    }

    Coordinates WayTo(std::size_t state) const {
        Coordinates result{};
        const std::size_t last = directions_.size() - 1;
        std::size_t b = state / layers_.back().width, a = state % layers_.back().width;
        result[last] = Lanes(last)[b];
        for (std::size_t segment = last; segment-- > 0;) {
            result[segment] = Lanes(segment)[a];
            const std::size_t before = layers_[segment].before[layers_[segment].At(a, b)];
            b = a, a = before;
        }
        return result;
    }

    const RouteRequest &request_;
    std::string_view directions_;
    const Coordinates &preferred_;
    RouteGrid grid_;
    std::array<std::vector<double>, 2> left_; // of upright lanes, of level ones
    std::vector<Layer> layers_;
    double most_ = kNever; // what costs as much is given up
};

} // namespace

Coordinates SearchLanes(const RouteRequest &request, std::string_view directions,
                        const Coordinates &preferred, std::span<const QRectF> obstacles) {
    return Search(request, directions, preferred, obstacles).Run();
}

} // namespace diagram
