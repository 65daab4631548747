// The commands of the timeline; their entries stand in the View menu, but for the date of a node.
#pragma once

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
// What lanes are made of; lines up at once where nodes stay at their dates.
void mnuViewLanesNone(frmMain &window);
void mnuViewLanesLevel(frmMain &window);
void mnuViewLanesGroup(frmMain &window);
// Asks for the date of the selected node, and gives it to all that are selected.
void keyDate(frmMain &window);

// Brings the checks of the timeline's menu entries in step with the current slice.
void ShowTimelineTick(frmMain &window);

} // namespace mainwindow
