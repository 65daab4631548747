// The nearest free place for a box among boxes that stay.
#pragma once

#include <QPointF>
#include <QRectF>
#include <vector>

namespace diagram {

// The centre nearest to that of `box` at which the box comes nowhere nearer to a held one than `gap`, and
// nowhere left of or above `least`.
QPointF NearestFree(const QRectF &box, const std::vector<QRectF> &held, double gap, const QPointF &least);

} // namespace diagram
