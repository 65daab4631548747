// What the icons are painted by, whether the program runs or is being built.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QRectF>

class QPainter;

namespace mainwindow {

// The painter is set up for an icon, which is faded where it can't be used.
void PrepareForIcon(QPainter &painter, bool faded);

// The drawing `svg` in the box; the colours of the drawings are turned into those for dark themes.
void DrawIcon(QPainter &painter, QByteArray svg, const QRectF &box, bool dark);

// How an icon looks whose pixels are known beforehand.
struct IconLook {
    int side = 0; // pixels
    bool dark = false;
    bool faded = false;
};
// The drawing on a transparent square of QImage::Format_ARGB32_Premultiplied.
QImage PaintedIcon(const QByteArray &svg, const IconLook &look);

} // namespace mainwindow
