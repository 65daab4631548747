// What an arrangement of the strip decides, from values to values: which months come and go, in which order
// they stand, where, and where the days in them and the ends of links on these. Lengths are twips.
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

// A run adds no more months than this; where that is too few the status bar says so in the end.
constexpr int kMostCreated = 48;

// The month nodes of a run: the key of the node, empty where it is to be made, and its month as canonical
// text.
using AxisRow = std::array<QString, 2>;
using AxisTable = std::vector<AxisRow>;
constexpr int kAxisKey = 0, kAxisMonth = 1; // columns

// Whether a row has that month.
bool DateExists(const AxisTable &Dates, const QString &Month);
// Sorts by the dates in the column; rows whose first column is empty stay out of it, and the rows behind the
// sorted ones keep what they held. Rows of the same date keep their order. Error 13 for what is no date.
void Sort2DArray(AxisTable &Table, int Column);

// The months of the rows of which `used` has no first day, each as often as it has rows.
QStringList UnusedMonths(const AxisTable &rows, const std::set<QDate> &used);

// The first month of the rows and the last one, as they are written; error 13 for what is no date.
std::pair<QString, QString> EndsOf(const AxisTable &rows);

// The rows with those months between the two that had none, each in the first row without a month, at most
// kMostCreated. There are as many rows as months; error 9 where there were more. `walked` are the months that
// were looked at.
struct FilledAxis {
    AxisTable rows;
    QStringList walked;
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
    std::optional<PieceOfStrip> fold{}; // what it was folded with
};
struct FoldedMonth {
    PieceOfStrip fold;
    std::optional<float>
        length; // of its sliver along the strip; nothing for a hidden month, which keeps its own
    friend bool operator==(const FoldedMonth &, const FoldedMonth &) = default;
};

// With what each month is folded, nothing for one that isn't: a month that came to a folded quarter or year
// belongs to it. All months in sight of one fold share a sliver, which is no longer than they are together;
// `full` is the length of a month along the strip.
std::vector<std::optional<FoldedMonth>> PlanFolds(const std::vector<MonthToFold> &months, double full);

struct MonthToPlace {
    QDate first;
    float width = 0, height = 0; // of a hidden one nothing along the strip
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

// The months edge to edge, those of one fold on top of each other; ends are rounded to the nearest number,
// halves to the even one. Each day stands in its slot (DaySlots.h) of the first month that has it. Each day
// of a folded month takes all of its sliver. Days whose months aren't there have no place. Nothing at all for
// a number that is no arrangement.
std::vector<PlacedMonth> PlanPlaces(const PlacesTask &task);

bool NodeIsLeftNode(const StripBox &A, const StripBox &B); // A stands left of B
bool NodeIsAboveNode(const StripBox &A,
                     const StripBox &B); // B stands above A, whatever the name says

// `end` moved to the middle of the edge of the day that faces where the link comes from.
diagram::Point EndOnDay(const StripBox &day, const StripBox &origin, diagram::Point end, bool rightwards);

} // namespace timeline
