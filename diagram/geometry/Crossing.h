// Whether straight lines run through boxes. Any unit.
#pragma once

#include <algorithm>
#include <QPointF>
#include <QRectF>

namespace diagram {

// Whether some of the piece between two points lies inside of the box; its edges aren't inside (Liang and
// Barsky's clipping, 1984).
inline bool RunsThrough(const QRectF &box, const QPointF &from, const QPointF &to) {
    double first = 0, last = 1;
    const auto clip = [&](double start, double length, double low, double high) {
        if (length == 0) return start > low && start < high;
        const double a = (low - start) / length, b = (high - start) / length;
        first = std::max(first, std::min(a, b)), last = std::min(last, std::max(a, b));
        return first < last;
    };
    if (from == to)
        return from.x() > box.left() && from.x() < box.right() && from.y() > box.top() &&
               from.y() < box.bottom();
    return clip(from.x(), to.x() - from.x(), box.left(), box.right()) &&
           clip(from.y(), to.y() - from.y(), box.top(), box.bottom());
}

} // namespace diagram
