// The layout of the timeline: a strip of months edge to edge, with the days inside their months.
#pragma once

#include <array>
#include <QDate>
#include <QString>
#include <vector>

namespace diagram {
class Node;
class Surface;
} // namespace diagram
namespace document {
class MapWindow;
}

namespace timeline {

// Where the strip lies and which way it runs; the number is stored.
enum class Arrangement { Left, Right, Top, Bottom, Center };
constexpr int kStoredArrangement = -1; // the one that the surface stores

// A run adds no more months than this; where that is too few the status bar says so in the end.
constexpr int kMostCreated = 48;

// The month nodes of a run: the key of the node, empty where it is to be made, and its month as canonical
// text.
using AxisRow = std::array<QString, 2>;
using AxisTable = std::vector<AxisRow>;

// Finds the months of the surface, adds the missing ones between the first and the last or takes those
// without a dated node away as the surface's settings say, gives each its text, lays them out, places the
// days in them and the ends of links on the days. Any other number than those of Arrangement, or
// kStoredArrangement, places nothing. Sets Dirty unless there is no month. Says what goes on in the status
// bar of the window. While the strip is hidden, months that are added are hidden too. Opens no group of
// changes; nodes that stay at their dates follow, `moved` as for FollowDates. Error 9 for a month whose text
// is no date, or two of the same month while missing ones are added: what was done until then stays.
void ArrangeTimeLineNodes(document::MapWindow &window, diagram::Surface &Flow, int Align,
                          const std::vector<diagram::Node *> &moved = {});

// Stores the arrangement of the surface's template node, else the middle, where the surface stores none.
void CarryArrangement(diagram::Surface &Flow);

// Writes each month between the two that has no row yet into the first row without a month, at most
// kMostCreated. The table gets as many rows as there are months; error 9 when it had more.
void FillMissingDates(AxisTable &Dates, const QString &StartDate, const QString &EndDate,
                      document::MapWindow &Main);
// Whether a row has that month.
bool DateExists(const AxisTable &Dates, const QString &Month);

// Sorts by the dates in the column; rows whose first column is empty stay out of it, and the rows behind the
// sorted ones keep what they held. Rows of the same date keep their order. Error 13 for what is no date.
void Sort2DArray(AxisTable &Table, int Column);

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
