// Orthogonal routes that keep clear of obstacles.
#pragma once

#include "diagram/shapes/RouterLanes.h"

#include <limits>

namespace diagram {

constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max() - 1; // and one more can be counted

// The obstacles, each once, to which the track comes within `nearness` twips, in an order that doesn't depend
// on that of the obstacles.
std::vector<QRectF> BoxesMet(const RouteRequest &request, const Track &track, double nearness);
// Their number; one more than `most` stands for whatever is above that.
std::size_t CountMet(const RouteRequest &request, const Track &track, double nearness,
                     std::size_t most = kNoLimit);

// `preferred` where nothing is in its way, else the best lanes round what is. Searches among few obstacles at
// first, and again with those that the route found meets, until it meets none.
Coordinates LanesAround(const RouteRequest &request, std::string_view directions,
                        const Coordinates &preferred);

// The lanes moved aside as the request asks; less those where that would run into something.
Coordinates LanesAside(const RouteRequest &request, std::string_view directions, const Coordinates &lanes);

} // namespace diagram
