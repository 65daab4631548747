// The commands of the timeline; their entries stand in the View menu, but for the date of a node.
#pragma once

namespace mainwindow {

class frmMain;

void mnuViewTimeline(frmMain &window);
void mnuViewDefaultNode(frmMain &window);
void mnuViewTimelineSetup(frmMain &window);
void mnuViewTimelineTidy(frmMain &window);
void mnuViewTimelineFill(frmMain &window);
// Asks for the date of the selected node, and gives it to all that are selected.
void keyDate(frmMain &window);

// Brings the check of the timeline's menu entry in step with the months of the current slice.
void ShowTimelineTick(frmMain &window);

} // namespace mainwindow
