// Forms of which much lies out of sight, cut down to what is near the picture: painters take time for every
// row that a form crosses, seen or not. All in pixels.
#pragma once

#include <QPainterPath>
#include <QRectF>

namespace vector {

// The area within `near`, with curves made of lines; the form itself when all of it lies there. The fill rule
// is kept. What runs along the edges of `near` may be added.
QPainterPath AreaNear(const QPainterPath &form, const QRectF &near);
// The stretches of its line within `near`, likewise.
QPainterPath LineNear(const QPainterPath &form, const QRectF &near);

} // namespace vector
