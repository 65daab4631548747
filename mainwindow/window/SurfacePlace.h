// From pixels of a window, as drags tell them, to its current surface.
#pragma once

#include <optional>
#include <QPointF>

class QPoint;

namespace mainwindow {

class frmMain;

// The place on the current surface in twips; none where the pixel isn't on its view.
std::optional<QPointF> SurfacePlace(frmMain &window, const QPoint &at);

} // namespace mainwindow
