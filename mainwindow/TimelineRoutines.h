// What the window asks of the timeline, under the names of its routines.
#pragma once

#include <functional>

namespace diagram {
class Node;
class Surface;
} // namespace diagram

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
    // Shows the settings of the default node and gives them to new nodes.
    std::function<void(diagram::Surface &Flow)> DefaultNodeSetup;
    // Shows the settings of the strip and lays it out anew.
    std::function<void(diagram::Surface &Flow)> TimelineSetup;
};

// AdjustLinks as it is; each of the others calls `notYet`.
TimelineRoutines DefaultTimelineRoutines(std::function<void()> notYet);

} // namespace mainwindow
