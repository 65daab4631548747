// The boxes that a search for a route has met so far.
#pragma once

#include <QRectF>
#include <vector>

namespace diagram {

// Puts the box in its place among `sorted`, whose order depends on the boxes alone; false when it is there.
bool AddBox(std::vector<QRectF> &sorted, const QRectF &box);
// Adds those of the boxes that aren't known yet; false when all are.
bool Learn(const std::vector<QRectF> &boxes, std::vector<QRectF> &known);

} // namespace diagram
