// Where the grid draws positions to.
#pragma once

#include "diagram/geometry/Units.h"
#include "diagram/interaction/PointerInput.h"

#include <QRectF>

namespace diagram {

class Surface;

// How far an arrow key moves things without Shift: a pixel at zoom 100, in twips.
constexpr double kKeyStep = kTwipsPerPixel;

// Whether positions snap now: the surface snaps and Alt isn't held.
bool Snaps(const Surface &surface, const PointerInput &input);
// The nearest line of the grid.
double SnapValue(const Surface &surface, double twips);
QPointF SnapPoint(const Surface &surface, const QPointF &twips);
// `delta` shortened so that `box` moved by it doesn't leave the surface, which begins at (0, 0); a box that
// lies outside already doesn't go further out.
QPointF KeepOnSurface(const QRectF &box, const QPointF &delta);

} // namespace diagram
