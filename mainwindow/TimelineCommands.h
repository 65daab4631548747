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
// Once; and for good, until it is switched off.
void mnuViewTimelineLineUp(frmMain &window);
void mnuViewTimelineKeep(frmMain &window);
// Whether what depends on a node is moved on with it.
void mnuViewTimelinePush(frmMain &window);
// What lanes are made of; lines up at once where nodes stay at their dates.
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

// Writes the names of levels and groups anew beside the timelines that have lanes.
void RenameLanes(frmMain &window);

// The selected nodes; links of the timeline end on others.
std::vector<diagram::Node *> NodesToDate(const diagram::Surface &surface);
// Says in the status bar where dates have gone to, nothing where they can't, and how many nodes have none.
void TellMoved(frmMain &window, const std::optional<timeline::MovedDates> &moved);

// Brings the checks of the timeline's menu entries in step with the current slice.
void ShowTimelineTick(frmMain &window);

} // namespace mainwindow
