// Rows lain onto each other beside the strip, away from it.
#pragma once

#include "timeline/FixedBeside.h"
#include "timeline/Rows.h"

#include <array>

namespace timeline {

// Bars, partings and gaps must live longer.
class RowStack {
public:
    RowStack(const std::vector<PlannedBar> &bars, const Partings &apart, const StripEdges &strip,
             const RowGaps &gaps, const std::vector<FixedBox> &fixed);
    RowStack(const RowStack &) = delete;
    RowStack &operator=(const RowStack &) = delete;

    // The middles of the bars, for rows in ascending order across. Rows that don't keep their place lie as
    // close as whole rows can.
    void Place(const std::vector<Row *> &rows, bool keep, std::vector<double> &middles) const;

private:
    class Skyline;
    struct Side {
        double sign, edge;
        const FixedBeside &fixed;
    };

    void PlaceSide(const std::vector<Row *> &rows, const Side &side, bool keep,
                   std::vector<double> &middles) const;
    std::vector<double> Closest(const std::vector<Row *> &rows, const Side &side) const;
    std::vector<double> Kept(const std::vector<Row *> &rows, const Side &side) const;
    double BreadthOf(const Row &row) const;
    double Needed(const Row &row, const Skyline &skyline, const std::vector<double> &tops) const;
    double DistanceOf(const Row &row, double needed, const Side &side) const;

    const std::vector<PlannedBar> &bars_;
    const Partings &apart_;
    const RowGaps &gaps_;
    FixedBeside behind_, before_;
    std::array<Side, 2> sides_;
};

} // namespace timeline
