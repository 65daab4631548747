// A layered drawing that is drawn again after a small change: little of it moves.
#pragma once

#include "diagram/layout/LayerChains.h"

#include <QPointF>
#include <vector>

namespace diagram {

// The share of the boxes, 0 to 1, that stand at the height of their layer, which is the median of its boxes.
// 0 unless the layers lie below each other in their order.
double ShareInLayers(const LayerGraph &graph, const std::vector<QPointF> &present);

// The shift of the drawing, median by median, that brings most boxes about where they stood.
QPointF ShiftBack(const std::vector<QPointF> &drawn, const std::vector<QPointF> &present);

// Whether most boxes then stand at the height at which they stood; with `level`, at the same x.
bool IsDrawnAgain(const std::vector<QPointF> &drawn, const std::vector<QPointF> &present, bool level);

} // namespace diagram
