// What is left of polygons and lines within a box. Any unit.
#pragma once

#include <QPointF>
#include <QPolygonF>
#include <QRectF>

namespace vector {

// The part of the closed polygon in the box (Sutherland and Hodgman, 1974). What runs along the box's edges
// may be added; empty when nothing is left.
QPolygonF PolygonWithin(const QRectF &box, QPolygonF polygon);

// The stretch of the piece between two points in the box, as shares of its length.
struct Stretch {
    double from = 0, to = 1;
    bool IsEmpty() const { return from >= to; }
    friend bool operator==(const Stretch &, const Stretch &) = default;
};
Stretch StretchWithin(const QRectF &box, const QPointF &start, const QPointF &end);

} // namespace vector
