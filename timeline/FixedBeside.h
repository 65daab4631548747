// What stands beside the strip and doesn't move.
#pragma once

#include "timeline/RowPlan.h"

namespace timeline {

// On one side of the strip.
class FixedBeside {
public:
    // `sign` is 1 behind the strip and -1 before it, where `edge` is its edge there. The bars must live
    // longer.
    FixedBeside(const std::vector<PlannedBar> &bars, const std::vector<FixedBox> &fixed, const RowGaps &gaps,
                double sign, double edge);

    // The nearest distance from the strip, from `distance` on, where the middles of these bars can stand
    // without one of them touching what is fixed.
    double Free(const std::vector<int> &row, double distance) const;

private:
    struct Reach {
        double near, far; // from the strip, with the gaps
    };
    void FindMet(const std::vector<FixedBox> &boxes, double longest);

    const std::vector<PlannedBar> &bars_;
    const RowGaps gaps_;
    std::vector<Reach> reaches_;
    std::vector<std::vector<int>>
        met_; // of each bar: what it would meet at some distance; empty for none at all
};

} // namespace timeline
