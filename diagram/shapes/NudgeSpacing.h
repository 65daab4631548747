// Places along a line that keep their order and distance, as near to where they would like to be as it goes.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace diagram {

struct WishedPlace {
    double wish, low, high; // low <= high
};

// `before` is to lie at least `apart` lower than `after`, which stands further behind in the order.
struct PlaceDistance {
    std::size_t before, after;
    double apart;
};

// Each place within its limits. Where there is no room for all distances of a row, they shrink evenly; a
// distance that the limits rule out altogether is dropped.
std::vector<double> SpaceOut(std::span<const WishedPlace> places, std::vector<PlaceDistance> distances);

} // namespace diagram
