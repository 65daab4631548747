// The lanes that a way round boxes may take, and what running along each of them costs.
//
// Whether a lane meets a box depends only on between which edges of boxes it lies, so that a lane or two
// between each pair of neighbouring edges stand for all (the interesting lines of Lee, Yang and Wong's
// survey of rectilinear paths, 1996, kept clear of the boxes where there is room).
#pragma once

#include "diagram/shapes/RouterLanes.h"

#include <span>
#include <vector>

namespace diagram {

constexpr double kThrough = 1e10;              // costs in twips: running into a box
constexpr double kCareful = 0.75 * kClearance; // a careful hand comes no nearer to one, where there is room

// What coming nearer to a box than so many twips costs; of several distances all that are passed.
struct Nearness {
    double distance, cost;
};
constexpr std::array<Nearness, 4> kNear{{{0, kThrough}, {40, 2500}, {90, 1200}, {kCareful, 400}}};

// Rings are drawn round a box at all of these distances but the first. What crossing so many of them from
// inside of that many costs.
constexpr std::array<double, kNear.size()> kTolls{0, 2500, 2500 + 1200, 2500 + 1200 + 400};

// How many rings of the box lie on this side of `at`, a coordinate of the axis of the span.
inline std::size_t RingsBeyond(const Span &box, double at) {
    std::size_t rings = 0;
    while (rings + 1 < kNear.size() &&
           (at <= box.low - kNear[rings + 1].distance || at >= box.high + kNear[rings + 1].distance))
        ++rings;
    return rings;
}

// The lanes of one direction, with the other direction's lanes as the stops along each.
class LaneTable {
public:
    // Lanes and stops ascend. `level`: the lanes are horizontal.
    LaneTable(const std::vector<double> &lanes, const std::vector<double> &stops, bool level,
              std::span<const QRectF> boxes);

    // Numbers along a lane from which the cost between two of its stops follows: rising from a lower stop to
    // a higher one costs Rising[higher] - Rising[lower], falling Falling[higher] - Falling[lower]. Distance
    // is part of it.
    const double *Rising(std::size_t lane) const { return &rising_[lane * stops_]; }
    const double *Falling(std::size_t lane) const { return &falling_[lane * stops_]; }
    double Between(std::size_t lane, std::size_t from, std::size_t to) const {
        return from <= to ? Rising(lane)[to] - Rising(lane)[from] : Falling(lane)[from] - Falling(lane)[to];
    }

private:
    void AddBox(const std::vector<double> &lanes, const std::vector<double> &stops, bool level,
                const QRectF &box, double cost);

    std::size_t stops_;
    std::vector<double> rising_, falling_;
};

class RouteGrid {
public:
    // The boxes of both ends count as obstacles too.
    RouteGrid(const RouteRequest &request, std::string_view directions, const Coordinates &preferred,
              std::span<const QRectF> obstacles);

    const std::vector<double> &Lanes(bool level) const { return level ? ys_ : xs_; }
    const LaneTable &Table(bool level) const { return level ? tables_[1] : tables_[0]; }
    // False for the edges of the end boxes, which are stops only.
    bool IsLane(bool level, std::size_t lane) const { return !(level ? yEdges_ : xEdges_)[lane]; }
    std::size_t Find(bool level, double value) const; // of a lane or stop that is there

private:
    std::vector<double> xs_, ys_;
    std::vector<bool> xEdges_, yEdges_;
    std::vector<LaneTable> tables_; // upright, level
};

} // namespace diagram
