// What stands beside the strip and doesn't move.
#pragma once

#include "timeline/RowPlan.h"

namespace timeline {

// What is fixed on one side of the strip.
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
    // From where to where a box reaches, in distances from the strip, with the gaps.
    struct Reach {
        double near, far;
    };
    void FindMet(const std::vector<FixedBox> &boxes, double longest);
    // How far from the strip the bar stands after it has gone past each box that it met, one after the other.
    double Past(int bar, double distance) const;

    const std::vector<PlannedBar> &bars_;
    const RowGaps gaps_;
    std::vector<Reach> reaches_;
    // For each bar the positions of the reaches that it meets at some distance; empty where nothing is fixed.
    std::vector<std::vector<int>> met_;
};

} // namespace timeline
