#pragma once

#include "diagram/render/Paint.h"
#include "diagram/shapes/Shapes.h"

namespace diagram {

struct NodeData;

// The light and dark double lines along the inside of `box` (device), in place of a border.
void PaintEdge(Paint &paint, ShapeEdge edge, const NodeData &data, const QRectF &box);

} // namespace diagram
