#pragma once

#include "diagram/render/Paint.h"

namespace diagram {

class Link;

// Line with jumps, arrow heads, label.
void PaintLink(Paint &paint, const Link &link);

// The way in device pixels, curves as runs of short segments; in paint.way.
void FillWay(Paint &paint, const Link &link, double width);

} // namespace diagram
