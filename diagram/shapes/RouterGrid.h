// The lanes that a way round boxes may take, and what running along each of them costs.
//
// Whether a lane meets a box depends only on between which edges of boxes it lies, so that a lane or two
// between each pair of neighbouring edges stand for all (the interesting lines of Lee, Yang and Wong's
// survey of rectilinear paths, 1996, kept clear of the boxes where there is room).
#pragma once

#include "diagram/shapes/RouterLanes.h"

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace diagram {

constexpr double kThrough = 1e10;              // costs in twips: running into a box
constexpr double kCareful = 0.75 * kClearance; // twips that a route keeps from boxes where there is room

// What coming nearer to a box than so many twips costs; the costs of all distances that are passed add up.
struct Nearness {
    double distance, cost;
};
constexpr std::array<Nearness, 4> kNear{{{0, kThrough}, {40, 2500}, {90, 1200}, {kCareful, 400}}};

// Each of these distances but the first is a ring round a box. What crossing that many of them costs, the
// innermost ones.
constexpr std::array<double, kNear.size()> kTolls{0, 2500, 2500 + 1200, 2500 + 1200 + 400};

// How many rings of the box lie between it and the coordinate `at`, along the axis of the span.
inline std::size_t RingsBeyond(const Span &box, double at) {
    std::size_t rings = 0;
    while (rings + 1 < kNear.size() &&
           (at <= box.low - kNear[rings + 1].distance || at >= box.high + kNear[rings + 1].distance))
        ++rings;
    return rings;
}

// A box, or a ring round it, by the lanes of a grid: those from `first` on that come before `past` run
// through it, and `past` is the first one behind it.
struct RingLanes {
    struct Range {
        std::size_t first, past;
        bool Holds(std::size_t lane) const { return first <= lane && lane < past; }
    };
    Range upright, level;
};
// The box and its rings, in the order of kNear: from the inside outwards.
using BoxLanes = std::array<RingLanes, kNear.size()>;

// The lanes of one direction, with the other direction's lanes as the stops along each. A lane is worked out
// when it is first asked for.
class LaneTable {
public:
    // Stops ascend; they and the boxes must outlive the table. `level`: the lanes are horizontal.
    LaneTable(std::size_t lanes, const std::vector<double> &stops, bool level,
              const std::vector<BoxLanes> &boxes);

    // Numbers along a lane from which the cost between two of its stops follows: rising from a lower stop to
    // a higher one costs Rising[higher] - Rising[lower], falling Falling[higher] - Falling[lower]. Distance
    // is part of it.
    const double *Rising(std::size_t lane) const { return Known(lane); }
    const double *Falling(std::size_t lane) const { return Known(lane) + stops_.size(); }
    double Between(std::size_t lane, std::size_t from, std::size_t to) const {
        return from <= to ? Rising(lane)[to] - Rising(lane)[from] : Falling(lane)[from] - Falling(lane)[to];
    }

private:
    const double *Known(std::size_t lane) const {
        if (!known_[lane]) Fill(lane);
        return &costs_[2 * lane * stops_.size()];
    }
    void Fill(std::size_t lane) const;
    void Enter(const BoxLanes &box, std::size_t lane, double *rising, double *falling) const;

    const std::vector<double> &stops_;
    bool level_;
    const std::vector<BoxLanes> &boxes_;
    mutable std::vector<char> known_;         // the lanes that are filled
    mutable std::unique_ptr<double[]> costs_; // a lane's numbers rising, then falling
};

class RouteGrid {
public:
    // The boxes of both ends count as obstacles too.
    RouteGrid(const RouteRequest &request, std::string_view directions, const Coordinates &preferred,
              std::span<const QRectF> obstacles);
    RouteGrid(const RouteGrid &) = delete;
    RouteGrid &operator=(const RouteGrid &) = delete;

    const std::vector<double> &Lanes(bool level) const { return level ? ys_ : xs_; }
    const LaneTable &Table(bool level) const { return level ? *level_ : *upright_; }
    // False for the edges of the end boxes, which are stops only.
    bool IsLane(bool level, std::size_t lane) const { return !(level ? yEdges_ : xEdges_)[lane]; }
    std::size_t Find(bool level, double value) const; // of a lane or stop that is there

private:
    std::vector<double> xs_, ys_;
    std::vector<bool> xEdges_, yEdges_;
    std::vector<BoxLanes> boxes_;
    std::optional<LaneTable> upright_, level_;
};

} // namespace diagram
