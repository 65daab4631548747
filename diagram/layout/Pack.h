// Unconnected parts of a diagram side by side and below each other.
#pragma once

#include <QPointF>
#include <QSizeF>
#include <vector>

namespace diagram {

// Width : height that the parts together come near to: what a screen shows beside its bars.
constexpr double kPackProportions = 1.5;

// The left top corners of the boxes, on a plane that begins at (0, 0): none nearer to another than `gap`,
// which is above 0, together as near to `proportions` (width : height) as they go. Higher boxes come first,
// equally high ones in their order, from left to right and from the top downwards. One box lies at (0, 0).
std::vector<QPointF> Pack(const std::vector<QSizeF> &boxes, double gap,
                          double proportions = kPackProportions);

} // namespace diagram
