// Boxes around centres: what they cover, and keeping them off each other. Twips.
#pragma once

#include "diagram/layout/Progress.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <vector>

namespace diagram {

inline QRectF BoxAround(const QPointF &centre, const QSizeF &size) {
    return {centre - QPointF(size.width(), size.height()) / 2, size};
}
// Of all boxes; empty for none.
QRectF ExtentOf(const std::vector<QSizeF> &sizes, const std::vector<QPointF> &centres);

// Whether any two boxes are nearer to each other than `gap`, across as well as down.
bool AnyTooNear(const std::vector<QSizeF> &sizes, const std::vector<QPointF> &centres, double gap);

// The smallest factor, within a percent, by which the centres can be stretched or drawn together around
// (0, 0) so that no two boxes are nearer than `gap`. No two centres may be the same.
double TightestScale(const std::vector<QSizeF> &sizes, const std::vector<QPointF> &centres, double gap);

// One round of pushing boxes that are nearer than `gap` apart; false when none were.
bool PushApartOnce(const std::vector<QSizeF> &sizes, std::vector<QPointF> &centres, double gap);
// Pushes boxes that are nearer than `gap` apart, each pair along the axis where it has less to go, until none
// are. What is far from others stays. Centres may be the same.
void PushApart(const std::vector<QSizeF> &sizes, std::vector<QPointF> &centres, double gap,
               Progress &progress);

} // namespace diagram
