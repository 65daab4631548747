// Rows laid one beside the other from the strip outwards, on both of its sides.
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

    enum class Fill : unsigned char {
        Keep,   // a row keeps its place where it touches nothing there
        Closest // rows lie as close to each other as whole rows can
    };
    // Writes the middles of the bars, for rows in ascending order across.
    void Place(const std::vector<Row *> &rows, Fill fill, std::vector<double> &middles) const;

private:
    class Skyline;
    struct Side {
        double sign, edge; // 1 behind the strip, -1 before it, where the edge is the strip's there
        const FixedBeside &fixed;
    };

    void PlaceSide(const std::vector<Row *> &rows, const Side &side, Fill fill,
                   std::vector<double> &middles) const;
    // The distances of the rows' middles from the strip.
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
