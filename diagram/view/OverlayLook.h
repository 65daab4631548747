// The colours and the pixel grid of what is painted on top of a diagram.
#pragma once

#include <QColor>
#include <QPainter>

namespace diagram {

class Surface;

// Follows the surface's own colour, not the desktop's theme: that is what the marks stand on.
struct OverlayLook {
    QColor accent; // selection, bands, what is being drawn
    QColor target; // the node that a link would join
    QColor guide;
    QColor onAccent; // text and signs on the accent
    QColor shade;    // over what doesn't belong to the surface
    double ratio;    // device pixels a pixel

    // A line of `pixels` that is a whole number of device pixels wide.
    QPen Line(const QColor &colour, double pixels) const;
    // Put through the middle of a device pixel, so that a thin line on it is crisp.
    QPointF Crisp(const QPointF &place) const;
    QRectF Crisp(const QRectF &box) const;
    // The device pixel on which the place lies; for one far off the screen, one that is off it as well.
    QPoint DevicePixel(const QPointF &place) const;
    // The device pixels of a line that is a pixel wide.
    int Thin() const;
};

OverlayLook LookFor(const Surface &surface, const QPainter &painter);

QColor Faded(QColor colour, int alpha);

} // namespace diagram
