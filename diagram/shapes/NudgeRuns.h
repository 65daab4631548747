// Routes as they look: runs between bends that can be seen, however many segments the style has.
#pragma once

#include "diagram/shapes/Nudging.h"
#include "diagram/shapes/RouterLanes.h"

namespace diagram {

struct Run {
    std::size_t route = 0, place = 0; // of the route among all, and of the run in it
    std::size_t first = 0, last = 0;  // segments
    bool level = false;
    double at = 0;                                // its lane
    double from = 0, to = 0;                      // along it, in the direction of the route
    bool isSource = false, isDestination = false; // it ends at that node
    double Low() const { return std::min(from, to); }
    double High() const { return std::max(from, to); }
    int Heading() const { return to < from ? -1 : 1; }
};

struct NudgedRoute {
    std::string_view directions; // empty for one that isn't nudged
    Coordinates lanes{};
    std::vector<Run> runs; // without those of no length
};

// The link's route with its lanes, still without runs; without directions where it can't be nudged.
NudgedRoute WorkOn(const NudgedLink &link);
// Finds the runs of the route, number `position` among all, by its lanes.
void FindRuns(const NudgedLink &link, std::size_t position, NudgedRoute &route);

// Where a run may lie without meeting a box, seen from where it is; ends keep to their side of the node.
Span RoomOf(const NudgedLink &link, const NudgedRoute &route, const Run &run);
// Where it would best lie if there were no others.
double WishOf(const NudgedLink &link, const Run &run);

// -1 when, walking along both to the lower or higher end of what they share, the first turns off so that it
// should lie at lower lanes than the other; 1 for higher lanes; 0 when nothing speaks for either.
int Turning(const std::vector<NudgedRoute> &routes, const Run &one, const Run &other, bool toHigher);

} // namespace diagram
