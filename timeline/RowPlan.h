// Rows beside the strip for bars whose place along it is fixed by their dates. Knows no surface: values in,
// values out. "Along" is the strip's direction, "across" the other one; all numbers are twips.
#pragma once

#include <vector>

namespace timeline {

// How far from its place something may stand and still counts as standing there: surfaces keep single floats.
constexpr double kRounding = 1;

struct PlannedBar {
    double begin = 0, end = 0; // along
    double beside = 0;         // along, behind the end: is left free too
    double breadth = 0;        // across
    double middle = 0;         // where it stands now, across
    int lane = 0;        // bars of one lane stay together; lanes follow each other in ascending order across
    bool before = false; // on that side of the strip where the numbers across are smaller
    bool gives = false;  // came or moved last, so it gives way to the others
    double EndOfRoom() const { return end + beside; }
};

struct BarLink {
    int from = 0, to = 0; // positions among the bars
};

// What doesn't move.
struct FixedBox {
    double begin = 0, end = 0;     // along
    double before = 0, behind = 0; // across, in ascending order
};

struct StripEdges {
    double before = 0, behind = 0; // across
};

// Room between neighbours.
struct RowGaps {
    double along = 0, across = 0, lanes = 0;
    double linked = 0; // along, at least, between two of a row with a link from one to the other
};

enum class RowOrder {
    Keep, // a bar leaves its row only where it would lie on another one, a row its place where it would touch
    Choose // rows in which bars stand side by side stay together, their order is the one in which links cross
           // least
};

// The middle of each bar, across: nothing lies on another or on what is fixed, rows keep within their lanes,
// and what needn't move stays. With Choose the present order stays unless another has at least a tenth fewer
// crossings; so a second run changes nothing.
std::vector<double> PlanRows(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links,
                             const StripEdges &strip, const RowGaps &gaps, RowOrder order,
                             const std::vector<FixedBox> &fixed = {});

} // namespace timeline
