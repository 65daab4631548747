// What the screen shows on top of the diagram: handles, the focus ring and the marks of a gesture. Never
// printed or exported.
#pragma once

#include <QRectF>

class QPainter;

namespace diagram {

class Scene;
class Viewport;
struct Overlay;

// Pixels that handles and the focus ring reach beyond the bounds of an item.
constexpr int kHandleReach = 8;

// Paints into viewport pixels. `area` is what must be painted; `focused` shows the focus ring.
void PaintSelection(QPainter &painter, Scene &scene, const Viewport &viewport, const QRectF &area,
                    bool focused);
void PaintOverlay(QPainter &painter, const Overlay &overlay, const Viewport &viewport);
// What PaintOverlay touches, viewport pixels.
QRect OverlayArea(const Overlay &overlay, const Viewport &viewport);

} // namespace diagram
