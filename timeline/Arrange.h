// The layout of the timeline: a strip of months edge to edge, with the days inside their months.
#pragma once

#include "timeline/StripPlan.h"

namespace diagram {
class Node;
class Surface;
} // namespace diagram
namespace document {
class MapWindow;
}

namespace timeline {

constexpr int kStoredArrangement = -1; // the one that the surface stores

// Finds the months of the surface, adds the missing ones between the first and the last or takes those
// without a dated node away as the surface's settings say, gives each its text, lays them out, places the
// days in them and the ends of links on the days. Any other number than those of Arrangement, or
// kStoredArrangement, places nothing. Sets Dirty unless there is no month. Says what goes on in the status
// bar of the window. While the strip is hidden, months that are added are hidden too. Opens no group of
// changes; nodes that stay at their dates follow, `moved` as for FollowDates. Error 9 for a month whose text
// is no date, or two of the same month while missing ones are added: what was done until then stays.
void ArrangeTimeLineNodes(document::MapWindow &window, diagram::Surface &Flow, int Align,
                          const std::vector<diagram::Node *> &moved = {});

// The same by the number that the surface stores, after something else on it was laid out; nothing where
// there is no month.
void ArrangeAgain(document::MapWindow &window, diagram::Surface &Flow);

// Stores the arrangement of the surface's template node, else the middle, where the surface stores none.
void CarryArrangement(diagram::Surface &Flow);

// FillAxis into the table; says in the status bar which months are looked at.
void FillMissingDates(AxisTable &Dates, const QString &StartDate, const QString &EndDate,
                      document::MapWindow &Main);

// Gives the months in sight the look of the template node, and lays out anew when Arrange says so.
void UpdateTimeLineNodes(document::MapWindow &window, diagram::Surface &Flow, bool Arrange,
                         const std::vector<diagram::Node *> &moved = {});
// Makes the months longer along the strip, or shorter, and lays out anew; nothing without a template node.
// A surface that stores no arrangement stores the middle.
void StretchAxis(document::MapWindow &window, diagram::Surface &Flow, float Factor);
// Shows or hides the strip; shown again after a date was given meanwhile, its months have their sizes and
// places as before.
void ShowTimeline(document::MapWindow &window, diagram::Surface &Flow, bool Shown);
// Shows all hidden months and lays out anew.
void DoUnHideTimelineNodes(document::MapWindow &window, diagram::Surface &Flow);

} // namespace timeline
