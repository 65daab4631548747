// What of a slice is to be lined up by its dates, read into values.
#pragma once

#include "timeline/LineUpPlan.h"

#include <vector>

namespace diagram {
class Node;
class Surface;
} // namespace diagram
namespace document {
class MapWindow;
}

namespace timeline {

struct DatedNodes {
    LineUpTask task;
    std::vector<diagram::Node *> nodes; // of the task's boxes, in the same order
};

// The user's nodes of which a day is in sight, as they stand now, those that are no bars any more with their
// own extent again; the other nodes in sight are what stays where it is. `moved` came or moved last.
DatedNodes ReadDatedNodes(document::MapWindow &window, const diagram::Surface &flow,
                          const std::vector<diagram::Node *> &moved);

} // namespace timeline
