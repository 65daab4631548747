#pragma once

#include "diagram/render/Paint.h"

namespace diagram {

class Link;

constexpr int kArchJump = 1; // the jump style with an arch; the other one leaves a gap

// The side to which an arch stands on a line that runs in that direction, both of length 1: up, and to the
// left on plumb lines.
QPointF ArchSide(const QPointF &direction);

// How round the corners of links to days are, twips.
constexpr double kDateCorner = 120;

// The link's line colour; for links to days, paler.
QRgb ColourOfLine(QRgb paper, const Link &link);

// Line with jumps, arrow heads, label.
void PaintLink(Paint &paint, const Link &link);

// Fills paint.route with the route in device pixels, a curve as a run of short segments. `width` is the
// line's, for snapping.
void FillRoute(Paint &paint, const Link &link, double width);

} // namespace diagram
