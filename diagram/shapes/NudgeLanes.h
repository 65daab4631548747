// Which runs share a lane.
#pragma once

#include "diagram/shapes/NudgeRuns.h"

namespace diagram {

// Runs that lie on one line: a single one, the common trunk of links from one node, or the two sides of a
// small jog that is drawn straight.
struct NudgeLane {
    std::vector<const Run *> runs;
    Span room{};     // where it may lie
    double at = 0;   // where it lies
    double wish = 0; // where it would best lie if there were no others
    bool IsFixed() const { return room.low == room.high; }
};

// The lanes of all runs of one direction. Moves nothing; the lanes point to the runs of `routes`.
std::vector<NudgeLane> LanesOf(std::span<const NudgedLink> links, const std::vector<NudgedRoute> &routes,
                               bool level);

} // namespace diagram
