// What is decided when the strip is laid out, from values to values: which months come and go, in which order
// they stand and where, where the days lie in them, and where links end on these days. Lengths are twips.
#pragma once

#include "diagram/geometry/Point.h"
#include "timeline/Folding.h"

#include <array>
#include <optional>
#include <QDate>
#include <QString>
#include <QStringList>
#include <set>
#include <utility>
#include <vector>

namespace timeline {

// Where the strip lies and which way it runs; the number is stored.
enum class Arrangement { Left, Right, Top, Bottom, Center };
bool IsArrangement(int number);
// Whether the strip of that arrangement runs from left to right; else it runs downwards.
bool RunsRightwards(int arrangement);

// Laying the strip out once adds no more months than this; where that is too few the status bar says so in
// the end.
constexpr int kMostCreated = 48;

// The months of the strip that is laid out, a row each: the key of the month's node, empty while the node has
// to be made, and the month as text in the pattern of months.
using AxisRow = std::array<QString, 2>;
using AxisTable = std::vector<AxisRow>;
constexpr int kAxisKey = 0, kAxisMonth = 1; // columns

// Whether one of the rows has that month, letter for letter.
bool DateExists(const AxisTable &Dates, const QString &Month);
// Sorts the rows by the dates in the column. Rows whose first column is empty aren't sorted: the sorted ones
// are written over the first rows of the table, and the rows behind these keep what they held. Rows of the
// same date keep their order. Error 13 for a text that is no date.
void Sort2DArray(AxisTable &Table, int Column);

// The months of the rows, in their order, of which `used` lacks the first day; a text that is no date counts
// as one.
QStringList UnusedMonths(const AxisTable &rows, const std::set<QDate> &used);

// The earliest month of the rows and the latest one, as they are written; error 13 for a text that is no
// date.
std::pair<QString, QString> EndsOf(const AxisTable &rows);

// Adds the months behind `first` up to `last` that have no row yet, at most kMostCreated of them: each goes
// into the first row without a month. The result has as many rows as there are months from `first` to `last`;
// error 9 where `rows` has more.
struct FilledAxis {
    AxisTable rows;
    QStringList walked; // the months that were looked at
};
FilledAxis FillAxis(AxisTable rows, const QString &first, const QString &last);

// The first two neighbours of the sorted rows between which months are missing.
std::optional<std::pair<QString, QString>> GapIn(const AxisTable &rows);

struct StripBox {
    float left = 0, top = 0, width = 0, height = 0;
    friend bool operator==(const StripBox &, const StripBox &) = default;
};

struct MonthToFold {
    std::optional<QDate> first; // nothing for one whose date is none
    bool hidden = false;
    std::optional<PieceOfStrip> fold{}; // the piece as which it is folded up to now
};
struct FoldedMonth {
    PieceOfStrip fold;
    // Of its sliver, along the strip; nothing for a hidden month, which keeps its length.
    std::optional<float> length;
    friend bool operator==(const FoldedMonth &, const FoldedMonth &) = default;
};

// The fold of each month, nothing for a month that isn't folded. A month that has come to a folded quarter or
// year belongs to that fold too. All months in sight of one fold share a sliver, which is no longer than they
// would be together when unfolded; `full` is the length of an unfolded month along the strip.
std::vector<std::optional<FoldedMonth>> PlanFolds(const std::vector<MonthToFold> &months, double full);

struct MonthToPlace {
    QDate first;
    float width = 0, height = 0; // a hidden month has the length 0 along the strip
    bool hidden = false;
    std::optional<PieceOfStrip> fold{};
};
struct PlacesTask {
    int arrangement = 0;
    float width = 0, height = 0;      // of the surface
    std::vector<MonthToPlace> months; // as they follow each other
    std::vector<QDate> days;
};

struct PlacedDay {
    std::size_t day; // of the task
    StripBox box;
    friend bool operator==(const PlacedDay &, const PlacedDay &) = default;
};
struct PlacedMonth {
    StripBox box;
    std::vector<PlacedDay> days;
};

// Places the months edge to edge, those of one fold on top of each other. Where a month ends is rounded to
// the nearest whole number, halves to the even one. Each day stands in its slot (DaySlots.h) of the first
// month to which it belongs; a day of a folded month takes all of the sliver. Days of months that the task
// lacks have no place. Returns no places at all for a number that is no arrangement.
std::vector<PlacedMonth> PlanPlaces(const PlacesTask &task);

// Whether A stands left of B.
bool NodeIsLeftNode(const StripBox &A, const StripBox &B);
// Whether B stands above A: the other way round than the name says.
bool NodeIsAboveNode(const StripBox &A, const StripBox &B);

// Where a link from `origin` that ended at `end` ends on the day: in the middle of the edge that faces
// `origin`.
diagram::Point EndOnDay(const StripBox &day, const StripBox &origin, diagram::Point end, bool rightwards);

} // namespace timeline
