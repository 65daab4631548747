// A layered drawing that is drawn again after a small change: little of it moves.
#pragma once

#include "diagram/layout/LayerChains.h"

#include <QPointF>
#include <vector>

namespace diagram {

// How many boxes stand at the height of their layer, which is that of most of its boxes, from 0 to 1. None
// unless the layers lie below each other.
double ShareInLayers(const LayerGraph &graph, const std::vector<QPointF> &present);

// The shift of what was drawn that brings most boxes to where they stood.
QPointF ShiftBack(const std::vector<QPointF> &drawn, const std::vector<QPointF> &present);

// Whether most boxes then come to the height at which they stood.
bool IsDrawnAgain(const std::vector<QPointF> &drawn, const std::vector<QPointF> &present, bool level);

} // namespace diagram
