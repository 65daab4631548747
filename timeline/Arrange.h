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

constexpr int kStoredArrangement = -1; // instead of a number: the arrangement that the surface stores

// Finds the months of the surface. As the surface's settings say, adds the missing ones between the first and
// the last, or takes away those without a dated node. Then gives each month its text, lays the months out,
// and places the days in them and the ends of links on the days. Nodes that are kept at their dates follow;
// `moved` is handed on to FollowDates.
//
// `Align` is a number of Arrangement or kStoredArrangement; with any other nothing is placed. Sets Dirty
// unless there is no month. Says what goes on in the status bar of the window. While the strip is hidden,
// months that are added are hidden too. Opens no group of changes. Error 9 for a month whose text is no date,
// and for two nodes of the same month while missing months are added: what was done until then stays.
void ArrangeTimeLineNodes(document::MapWindow &window, diagram::Surface &Flow, int Align,
                          const std::vector<diagram::Node *> &moved = {});

// Lays the strip out again by the number that the surface stores, after something else on the surface was
// laid out. Does nothing where there is no month.
void ArrangeAgain(document::MapWindow &window, diagram::Surface &Flow);

// Where the surface stores no arrangement, stores that of its template node, or the middle where that has
// none either.
void CarryArrangement(diagram::Surface &Flow);

// Does to the table what FillAxis tells, and says in the status bar which months are looked at.
void FillMissingDates(AxisTable &Dates, const QString &StartDate, const QString &EndDate,
                      document::MapWindow &Main);

// Gives the months in sight the look of the template node, and lays the strip out anew when Arrange says so.
void UpdateTimeLineNodes(document::MapWindow &window, diagram::Surface &Flow, bool Arrange,
                         const std::vector<diagram::Node *> &moved = {});
// Makes the months longer along the strip, or shorter, and lays the strip out anew. Does nothing without a
// template node. A surface that stores no arrangement stores the middle from then on.
void StretchAxis(document::MapWindow &window, diagram::Surface &Flow, float Factor);
// Shows or hides the strip. Where it was laid out while it was hidden, as when a node was given a date, it is
// laid out anew when it is shown, so that its months have sizes and places again.
void ShowTimeline(document::MapWindow &window, diagram::Surface &Flow, bool Shown);
// Shows all hidden months and lays the strip out anew.
void DoUnHideTimelineNodes(document::MapWindow &window, diagram::Surface &Flow);

} // namespace timeline
