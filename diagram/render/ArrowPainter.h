#pragma once

#include "diagram/render/Paint.h"

namespace diagram {

// An arrow head at the end or in the middle of a link.
struct ArrowHead {
    int value = 0;
    double scale = 0;  // length of the unit frame, device pixels
    QPointF tip;       // device
    QPointF direction; // in which it points, of length 1
};

void PaintArrow(Paint &paint, const ArrowHead &head, QRgb colour, double width);

} // namespace diagram
