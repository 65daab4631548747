// In which order lanes lie.
#pragma once

#include "diagram/shapes/NudgeLanes.h"

namespace diagram {

// Two lanes that come near to each other: `before` is to lie at lower coordinates than `after`.
struct LanePair {
    std::size_t before, after;
};
std::vector<LanePair> OrderPairs(std::span<const NudgedLink> links, const std::vector<NudgedRoute> &routes,
                                 const std::vector<NudgeLane> &lanes);

// All lanes from the lowest to the highest, with as many pairs in order as possible: pairs may contradict
// each other.
std::vector<std::size_t> OrderLanes(const std::vector<NudgeLane> &lanes, const std::vector<LanePair> &pairs);

} // namespace diagram
