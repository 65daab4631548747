// The tables of the search for the best lanes.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

namespace diagram {

constexpr double kNever = std::numeric_limits<double>::infinity();

// A range of lanes, empty at first.
struct LaneRange {
    std::size_t first = SIZE_MAX, last = 0;
    bool IsEmpty() const { return first > last; }
    void Extend(std::size_t lane) { first = std::min(first, lane), last = std::max(last, lane); }
};

// What is known of all bends where segment i, on lane `a` of its direction, meets segment i + 1 on lane `b`:
// the least cost of a route to there. Costs are valid only within the range of lanes that is reached.
class RouteLayer {
public:
    RouteLayer(std::size_t lanes, std::size_t next)
        : width_(lanes),
          cost_(std::make_unique_for_overwrite<double[]>(lanes * next)),
          before_(std::make_unique_for_overwrite<std::uint16_t[]>(lanes * next)),
          reached_(next) {}
    std::size_t At(std::size_t a, std::size_t b) const { return b * width_ + a; }
    // Takes the costs if they are the least so far.
    void Offer(std::size_t a, std::size_t b, double costs, std::size_t from) {
        double *row = &cost_[At(0, b)];
        Extend(row, reached_[b], a);
        if (costs >= row[a]) return;
        row[a] = costs;
        before_[At(a, b)] = std::uint16_t(from);
    }
    // From which lanes `a` lane `b` is reached, and the costs by lane.
    const LaneRange &Reached(std::size_t b) const { return reached_[b]; }
    const double *Costs(std::size_t b) const { return &cost_[At(0, b)]; }
    // The lane of segment i - 1 on the best route there.
    std::size_t Before(std::size_t a, std::size_t b) const { return before_[At(a, b)]; }
    std::size_t Width() const { return width_; }

private:
    static void Extend(double *row, LaneRange &range, std::size_t lane) {
        if (range.IsEmpty()) {
            row[lane] = kNever;
        } else {
            for (std::size_t i = lane; i < range.first; ++i) row[i] = kNever;
            for (std::size_t i = range.last + 1; i <= lane; ++i) row[i] = kNever;
        }
        range.Extend(lane);
    }

    std::size_t width_;
    std::unique_ptr<double[]> cost_;
    std::unique_ptr<std::uint16_t[]> before_;
    std::vector<LaneRange> reached_;
};

// The routes that come in on a lane: what each costs up to its stop there.
struct Arrivals {
    Arrivals(const RouteLayer &layer, std::size_t lane)
        : cost(layer.Costs(lane)), stops(layer.Reached(lane)) {}
    double operator[](std::size_t stop) const { return cost[stop]; }
    const double *cost;
    LaneRange stops;
};

// The cheapest of the offers made, and the stop that it comes from.
struct BestStop {
    double cost = kNever;
    std::size_t stop = 0;
    void Offer(double offered, std::size_t from) {
        if (offered < cost) cost = offered, stop = from;
    }
};

} // namespace diagram
