// What is drawn beside the timeline of a slice, switched in the View menu.
#pragma once

namespace mainwindow {

class frmMain;

void mnuViewBands(frmMain &window);
void mnuViewWeekends(frmMain &window);
void mnuViewTodayEverywhere(frmMain &window);

// Brings the checks in step with the current slice.
void ShowCalendarTicks(frmMain &window);

} // namespace mainwindow
