#include "diagram/interaction/Snap.h"

#include "diagram/model/ScreenValues.h"
#include "diagram/model/Surface.h"

#include <cmath>

namespace diagram {

bool Snaps(const Surface &surface, const PointerInput &input) {
    return surface.Screen().SnapToGrid() && !input.Alt();
}

double SnapValue(const Surface &surface, double twips) {
    const double grid = surface.Screen().GridSize();
    return std::round(twips / grid) * grid;
}

QPointF SnapPoint(const Surface &surface, const QPointF &twips) {
    return {SnapValue(surface, twips.x()), SnapValue(surface, twips.y())};
}

QPointF KeepOnSurface(const QRectF &box, const QPointF &delta) {
    return {qMax(delta.x(), qMin(0.0, -box.left())), qMax(delta.y(), qMin(0.0, -box.top()))};
}

} // namespace diagram
