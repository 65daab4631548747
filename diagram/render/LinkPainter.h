#pragma once

#include "diagram/render/Paint.h"

namespace diagram {

class Link;

constexpr int kArchJump = 1; // a jump style; the others leave a gap

// The side to which an arch stands on a line that runs in that direction, both of length 1: up, and to the
// left on plumb lines.
QPointF ArchSide(const QPointF &direction);

// How round the corners of links to days are, twips.
constexpr double kDateCorner = 120;

// Links to days stand back on their paper, wherever they are drawn.
QRgb ColourOfLine(QRgb paper, const Link &link);

// Line with jumps, arrow heads, label.
void PaintLink(Paint &paint, const Link &link);

// The route in device pixels, curves as runs of short segments; in paint.route.
void FillRoute(Paint &paint, const Link &link, double width);

} // namespace diagram
