// A picture as metafiles embed it: a device-independent bitmap.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QRgb>
#include <QSize>

namespace vector {

struct MetafileDib {
    QSize size;        // pixels
    QByteArray header; // BITMAPINFOHEADER
    QByteArray bits;   // 24 bits a pixel, rows from below, each padded to four bytes
};

// No more pixels than show: three for each of the screen at zoom 100, with `unitsPerPixel` of the place's
// units to a pixel. What is transparent shows `behind`.
MetafileDib DibOf(const QImage &image, const QSizeF &place, double unitsPerPixel, QRgb behind);

} // namespace vector
