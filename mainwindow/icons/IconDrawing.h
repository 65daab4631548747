// Paints the drawings of icons, for the running program and for the tool that paints some while it is built.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QRectF>

class QPainter;

namespace mainwindow {

// Sets the painter up for an icon; `faded` for one that is disabled.
void PrepareForIcon(QPainter &painter, bool faded);

// The drawing `svg` in the box; the colours of the drawings are turned into those for dark themes.
void DrawIcon(QPainter &painter, QByteArray svg, const QRectF &box, bool dark);

// What the pixels of an icon depend on, beside its drawing.
struct IconLook {
    int side = 0; // pixels
    bool dark = false;
    bool faded = false;
};
// The drawing on a transparent square of QImage::Format_ARGB32_Premultiplied.
QImage PaintedIcon(const QByteArray &svg, const IconLook &look);

} // namespace mainwindow
