#include "vector/geometry/Clipping.h"

#include <algorithm>
#include <array>

namespace vector {

namespace {

// A half plane: points with a distance of 0 or more are in it.
struct Side {
    bool across; // of a left or right side
    double sign, at;
    double Inside(const QPointF &point) const { return sign * ((across ? point.x() : point.y()) - at); }
};

std::array<Side, 4> SidesOf(const QRectF &box) {
    return {
        {{true, 1, box.left()}, {true, -1, box.right()}, {false, 1, box.top()}, {false, -1, box.bottom()}}};
}

QPolygonF CutBy(const Side &side, const QPolygonF &polygon) {
    QPolygonF cut;
    for (qsizetype i = 0; i < polygon.size(); ++i) {
        const QPointF &from = polygon[i], &to = polygon[(i + 1) % polygon.size()];
        const double a = side.Inside(from), b = side.Inside(to);
        if (a >= 0) cut << from;
        if ((a >= 0) != (b >= 0)) cut << from + (to - from) * (a / (a - b));
    }
    return cut;
}

} // namespace

QPolygonF PolygonWithin(const QRectF &box, QPolygonF polygon) {
    for (const Side &side : SidesOf(box)) polygon = CutBy(side, polygon);
    return polygon;
}

Stretch StretchWithin(const QRectF &box, const QPointF &start, const QPointF &end) {
    Stretch stretch;
    for (const Side &side : SidesOf(box)) {
        const double a = side.Inside(start), b = side.Inside(end);
        if (a < 0 && b < 0) return {1, 0};
        if (a < 0) stretch.from = std::max(stretch.from, a / (a - b));
        if (b < 0) stretch.to = std::min(stretch.to, a / (a - b));
    }
    return stretch;
}

} // namespace vector
