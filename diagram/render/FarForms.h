// Forms and lines that reach far beyond what is painted: only the part that is painted is drawn, as the time
// to draw all of them grows with their size.
#pragma once

#include "diagram/render/Paint.h"

#include <QPainterPath>

namespace diagram {

// Whether a form in `box` (device) is so large; never for a vector target, which draws nothing itself.
bool IsFar(const Paint &paint, const QRectF &box);
// Fills and strokes, with the pen and brush as they are, the part of the outline (device) that is painted.
void DrawFar(Paint &paint, const QPainterPath &outline);
// Strokes what is painted of a line (device) with the pen as it is.
void DrawFarLine(Paint &paint, const std::vector<QPointF> &line);
// The same for a path (device); a vector target gets all of it.
void DrawFarPath(Paint &paint, const QPainterPath &path);
// What the outline holds of the part that is painted, for filling and clipping: beyond that part its edge
// isn't the outline's.
QPainterPath PaintedPart(const Paint &paint, const QPainterPath &outline);

} // namespace diagram
