// Which bars stand side by side beside the strip.
#pragma once

#include "timeline/RowPlan.h"

#include <map>

namespace timeline {

// Of each bar: those that mustn't stand side by side with it.
using Partings = std::vector<std::vector<int>>;
// Those between which there would be no room for their link.
Partings LinkedTooClosely(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links,
                          const RowGaps &gaps);

struct Row {
    std::vector<int> bars;          // positions among the bars
    std::map<double, double> taken; // begins and ends along, with the gap behind each
    double middle = 0;              // of its first bar, across, where that stands now
    int lane = 0;
    bool before = false;   // as PlannedBar's
    bool gathered = false; // made of bars that stood apart: has no place that it could keep
};

// Each bar in one row: those that stand in one already as far as they fit, the others beside what they are
// linked with, else in the nearest row with room, else in one of their own.
std::vector<Row> MakeRows(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links,
                          const Partings &apart, double gap, RowOrder order);

} // namespace timeline
