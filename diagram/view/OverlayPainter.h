// The marks of a gesture on top of the diagram. Never printed or exported.
#pragma once

#include <QLineF>
#include <QRect>
#include <QRegion>
#include <span>

class QPainter;

namespace diagram {

class Surface;
class Viewport;
struct Overlay;

// Paints into viewport pixels.
void PaintOverlay(QPainter &painter, const Overlay &overlay, const Surface &surface,
                  const Viewport &viewport);
// Where a strip of days (twips, across it) leaves something out: it looks torn there.
void PaintBreaks(QPainter &painter, std::span<const QLineF> breaks, const Surface &surface,
                 const Viewport &viewport);
// Where pages of paper end, in twips: light dashed lines.
void PaintPageBreaks(QPainter &painter, std::span<const QLineF> breaks, const Surface &surface,
                     const Viewport &viewport);
// Shades what lies left of the surface's origin or above it, where nothing can be put.
void PaintBeyondTheOrigin(QPainter &painter, const Surface &surface, const Viewport &viewport,
                          const QRectF &area);
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
