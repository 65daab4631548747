// Which runs share a lane, and in which order lanes lie.
#pragma once

#include "diagram/shapes/NudgeRuns.h"

namespace diagram {

// Runs that lie on one line: alone, or as the trunk of a tree, or on both sides of a jog that is drawn
// straight.
struct NudgeLane {
    std::vector<const Run *> runs;
    Span room{};
    double at = 0, wish = 0;
    bool IsFixed() const { return room.low == room.high; }
};

// Of the runs of one direction. The runs stay where they are.
std::vector<NudgeLane> LanesOf(std::span<const NudgedLink> links, const std::vector<NudgedRoute> &routes,
                               bool level);

// Of two lanes that come near to each other the first is to lie lower.
struct LanePair {
    std::size_t before, after;
};
std::vector<LanePair> OrderPairs(std::span<const NudgedLink> links, const std::vector<NudgedRoute> &routes,
                                 const std::vector<NudgeLane> &lanes);

// All lanes, so that as many pairs as possible are in order.
std::vector<std::size_t> OrderLanes(const std::vector<NudgeLane> &lanes, const std::vector<LanePair> &pairs);

} // namespace diagram
