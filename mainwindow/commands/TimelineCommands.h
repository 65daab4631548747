// The commands of the timeline; their entries stand in the View menu, but for the date of a node.
#pragma once

#include <optional>
#include <vector>

namespace diagram {
class Node;
class Surface;
} // namespace diagram
namespace timeline {
struct MovedDates;
}

namespace mainwindow {

class frmMain;

void mnuViewTimeline(frmMain &window);
void mnuViewDefaultNode(frmMain &window);
void mnuViewTimelineSetup(frmMain &window);
void mnuViewTimelineTidy(frmMain &window);
void mnuViewTimelineFill(frmMain &window);
// Lines nodes up by date: once, and again after each change while the switch is on.
void mnuViewTimelineLineUp(frmMain &window);
void mnuViewTimelineKeep(frmMain &window);
// Switches whether a node that ends later moves those that depend on it.
void mnuViewTimelinePush(frmMain &window);
// Choose what the lanes beside the timeline stand for; nodes that stay at their dates are lined up at once.
void mnuViewLanesNone(frmMain &window);
void mnuViewLanesLevel(frmMain &window);
void mnuViewLanesGroup(frmMain &window);
// Asks for the date of the selected node, and gives it to all that are selected; or moves each of several
// from the date that it has.
void keyDate(frmMain &window);
// Moves the dates of what is selected.
void keyDayLater(frmMain &window);
void keyDayEarlier(frmMain &window);
void keyWeekLater(frmMain &window);
void keyWeekEarlier(frmMain &window);

// Brings the names of lanes beside the timelines in step with the levels and groups.
void RenameLanes(frmMain &window);

// The selected nodes without those of the timeline itself.
std::vector<diagram::Node *> NodesToDate(const diagram::Surface &surface);
// Says in the status bar to which dates nodes were moved and how many have none; without a value, which years
// there are.
void TellMoved(frmMain &window, const std::optional<timeline::MovedDates> &moved);

// Brings the checks of the timeline's menu entries in step with the current slice.
void ShowTimelineTick(frmMain &window);

} // namespace mainwindow
