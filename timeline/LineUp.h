// Nodes at their dates: beside the strip, each with its centre on that of its day.
#pragma once

#include "timeline/RowPlan.h"

#include <vector>

namespace diagram {
class Node;
class Surface;
} // namespace diagram
namespace document {
class MapWindow;
}

namespace timeline {

// Nothing here opens a group of changes, and nothing is written where nothing has to move. Nodes of hidden
// months stay where they are, as do those without a date; nodes that a filter hides are moved with the
// others.

struct LinedUp {
    int dated = 0; // nodes that stand at their dates now
    int moved = 0; // of these
};

// Moves the dated nodes to their dates, with the links that they have: orthogonal ones get the style that
// suits their new places best, but for those with bends of the user's. `moved` came or moved last and give
// way to the others.
LinedUp LineUp(document::MapWindow &window, diagram::Surface &flow, RowOrder order,
               const std::vector<diagram::Node *> &moved = {});
// The same with RowOrder::Keep where the slice keeps its nodes at their dates; else nothing.
void FollowDates(document::MapWindow &window, diagram::Surface &flow,
                 const std::vector<diagram::Node *> &moved = {});
// Writes down where the lanes stand and what they are called, as LineUp does; nothing moves.
void NoteLanes(document::MapWindow &window, diagram::Surface &flow);

} // namespace timeline
