#include "diagram/shapes/KnownBoxes.h"

#include <algorithm>

namespace diagram {

namespace {

bool IsBefore(const QRectF &a, const QRectF &b) {
    if (a.left() != b.left()) return a.left() < b.left();
    if (a.top() != b.top()) return a.top() < b.top();
    if (a.width() != b.width()) return a.width() < b.width();
    return a.height() < b.height();
}

} // namespace

bool AddBox(std::vector<QRectF> &sorted, const QRectF &box) {
    const auto place = std::ranges::lower_bound(sorted, box, IsBefore);
    if (place != sorted.end() && !IsBefore(box, *place)) return false;
    sorted.insert(place, box);
    return true;
}

bool Learn(const std::vector<QRectF> &boxes, std::vector<QRectF> &known) {
    bool any = false;
    for (const QRectF &box : boxes) any |= AddBox(known, box);
    return any;
}

} // namespace diagram
