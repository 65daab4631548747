// The best lanes for a sequence of directions round obstacles.
#pragma once

#include "diagram/shapes/RouterLanes.h"

#include <span>

namespace diagram {

// What former searches tell: cost bounds below which they found nothing aren't tried again. Searches among
// ever more obstacles for the same ends share one object; the lanes found don't depend on it.
struct SearchBound {
    std::size_t tried = 0;    // how many of the bounds, in ascending order, gave no route
    bool runsThrough = false; // no route is free of all boxes, nor will one be among more of them
};

// The lanes of least cost among those of a RouteGrid: fewest boxes run through; then no bend under an arrow
// head; then short, clear of boxes and near to the lanes preferred.
//
// A dynamic programme over the segments, as the directions fix their number: the state behind a segment is
// its bend, given by two lanes. Each layer is two sweeps along every lane, so that the whole takes at most
// time proportional to the number of segments times the number of crossings of lanes; bends behind which no
// route as cheap as the one sought is left are given up. (Fixed sequences make a layered graph of the
// visibility grid of Wybrow, Marriott and Stuckey, Orthogonal Connector Routing, 2009.)
Coordinates SearchLanes(const RouteRequest &request, std::string_view directions,
                        const Coordinates &preferred, std::span<const QRectF> obstacles, SearchBound &bound);

} // namespace diagram
