// What the window asks of the timeline, under the names of its routines.
#pragma once

#include <functional>
#include <vector>

namespace diagram {
class Node;
class Surface;
} // namespace diagram
namespace document {
class MapWindow;
}

namespace mainwindow {

struct TimelineRoutines {
    // Puts the ends of the node's timeline links on its day; Horizontal: the strip runs from left to right.
    std::function<void(diagram::Node &Node, bool Horizontal)> AdjustLinks;
    // Lays the strip out; Align -1 takes the arrangement that the surface stores.
    std::function<void(diagram::Surface &Flow, int Align)> ArrangeTimeLineNodes;
    // Shows all hidden months.
    std::function<void(diagram::Surface &Flow)> DoUnHideTimelineNodes;
    // Shows or hides the strip.
    std::function<void(diagram::Surface &Flow, bool Shown)> ShowHideTimelineNodes;
    // Gives the months the look of the strip's template, and lays the strip out anew when Arrange says so.
    std::function<void(diagram::Surface &Flow, bool Arrange)> UpdateTimeLineNodes;
};

// The routines of the timeline on the slices of that window, which must outlive them.
TimelineRoutines DefaultTimelineRoutines(document::MapWindow &window);

// Calls AdjustLinks for the nodes, with the arrangement of their slice: they were moved, or have another
// size.
void AdjustLinksOf(const std::vector<diagram::Node *> &nodes, const TimelineRoutines &routines);

} // namespace mainwindow
