// Where the lanes stand in which a slice's nodes were lined up last, with the names that they had then: kept
// in the tag of the timeline's template node, so that they are drawn wherever the surface is.
#pragma once

#include "diagram/model/Calendar.h"

#include <vector>

namespace diagram {
class Surface;
}

namespace timeline {

// Empty where nodes don't stay at their dates, or in no lanes.
std::vector<diagram::Calendar::Lane> LaneRowsOf(const diagram::Surface &flow);
// The tag stays as it is where it says so already.
void NoteLaneRows(diagram::Surface &flow, const std::vector<diagram::Calendar::Lane> &lanes);

} // namespace timeline
