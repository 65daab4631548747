// Drawing of runs of straight segments by the quickest call for them.
#pragma once

#include "diagram/render/Paint.h"

#include <vector>

namespace diagram {

// A solid run of level and plumb segments, in whole pixels: only for frames that snap.
void DrawLevelRoute(QPainter &painter, const std::vector<QPointF> &route, int width, QRgb colour);
// Whether each segment is level or plumb.
bool IsLevel(const std::vector<QPointF> &route);

// A run of segments (device) with the pen as it is; no more than what is painted. Solid segments are drawn
// one by one: the painter takes many times as long for a run.
void DrawRoute(Paint &paint, const std::vector<QPointF> &route);
// The same for a curve that is taken apart into many short segments.
void DrawCurve(Paint &paint, const std::vector<QPointF> &route);

} // namespace diagram
