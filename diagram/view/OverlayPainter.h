// The marks of a gesture on top of the diagram. Never printed or exported.
#pragma once

#include <QRect>
#include <QRegion>

class QPainter;

namespace diagram {

class Surface;
class Viewport;
struct Overlay;

// Paints into viewport pixels.
void PaintOverlay(QPainter &painter, const Overlay &overlay, const Surface &surface,
                  const Viewport &viewport);

// What PaintOverlay touches, viewport pixels.
struct OverlayPlace {
    QRect band; // the rubber band, frame included
    QRect rest;
};
OverlayPlace PlaceOf(const Overlay &overlay, const Viewport &viewport);
// What has to be painted again when the marks go from one place to another: of a band only what the one
// covers and the other doesn't, and the frames.
QRegion ChangedArea(const OverlayPlace &before, const OverlayPlace &now);

} // namespace diagram
