// What the screen shows of the page itself over the picture. Never printed or exported.
#pragma once

#include <QLineF>
#include <QRectF>
#include <span>

class QPainter;

namespace diagram {

class Surface;
class Viewport;

// Where pages of paper end, in twips: light dashed lines.
void PaintPageBreaks(QPainter &painter, std::span<const QLineF> breaks, const Surface &surface,
                     const Viewport &viewport);
// Shades what lies left of the surface's origin or above it within `area` (pixels of the viewport): nothing
// can stay there.
void PaintBeyondTheOrigin(QPainter &painter, const Surface &surface, const Viewport &viewport,
                          const QRectF &area);

} // namespace diagram
