// Places along a line that keep their order and distance, as near to where they would like to be as it goes.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace diagram {

struct Place {
    double wish, low, high; // low <= high
};

// `before` is to lie that much lower than `after`, a place further behind in the order.
struct Distance {
    std::size_t before, after;
    double apart;
};

// Each place within its limits. Where there is no room for all of a row, its distances shrink evenly; what
// can't be had at all is let go.
std::vector<double> SpaceOut(std::span<const Place> places, std::vector<Distance> distances);

} // namespace diagram
