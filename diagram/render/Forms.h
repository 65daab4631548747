// Drawing of a shape's form by the quickest call for it.
#pragma once

#include "diagram/render/Paint.h"
#include "diagram/shapes/Shapes.h"

namespace diagram {

// The outline in `box` (device) with the pen and brush as they are.
void DrawForm(Paint &paint, const ShapeRow &row, int orientation, const QRectF &box);

// A solid frame along the sides of `box`, whole pixels, `width` wide, its middle on the sides.
void FrameBox(QPainter &painter, const QRectF &box, int width, QRgb colour);

} // namespace diagram
