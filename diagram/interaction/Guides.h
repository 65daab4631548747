// Lines and distances that a box has in common with the boxes around it: pure geometry, in twips.
#pragma once

#include <optional>
#include <QLineF>
#include <QRectF>
#include <vector>

namespace diagram {

// What of a box goes with the pointer along an axis.
enum class Moving : unsigned char { Nothing, Low, High, Whole }; // left or top, right or bottom

class Guides {
public:
    explicit Guides(std::vector<QRectF> around = {}) : around_(std::move(around)) {}

    // How much further `box` must go along the axis to line up with one of the boxes around it, edge by edge
    // and middle by middle, to stand at the same distance from its neighbours in the row or column as they do
    // among themselves, or, when one side moves, to be as long as one of the others. The nearest, at most
    // `reach` away; none when nothing is.
    std::optional<double> Shift(const QRectF &box, Qt::Orientation axis, Moving moving, double reach) const;

    // The same for a single place, without distances.
    std::optional<double> ShiftOfPlace(double place, Qt::Orientation axis, double reach) const;

    // What `box` has in common with others where it stands now. Each line runs from the box to the nearest of
    // those that it lines up with.
    std::vector<QLineF> Lines(const QRectF &box, Qt::Orientation axis, Moving moving) const;
    // The equal distances: lines across the gaps, in pairs.
    std::vector<QLineF> Gaps(const QRectF &box, Qt::Orientation axis, Moving moving) const;
    // The top or left side of `box` and that of the nearest other that is as long along the axis; none while
    // the box is moved as a whole.
    std::vector<QLineF> Sizes(const QRectF &box, Qt::Orientation axis, Moving moving) const;

private:
    std::vector<QRectF> around_;
};

} // namespace diagram
