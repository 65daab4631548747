// Device-independent bitmaps as metafiles embed them ([MS-WMF] 2.2.2.9).
#pragma once

#include <QByteArrayView>
#include <QImage>

namespace vector {

// A header with its colours, and the pixels.
struct DibParts {
    QByteArrayView header;
    QByteArrayView bits;
};

// Where the pixels follow the colours directly; empty when the header is cut off.
DibParts SplitDib(QByteArrayView dib);
// Pixels that the header announces; 0 for a broken one, for more than 2^24 packed ones, and for plain ones
// that are not all there.
qint64 PixelsOf(const DibParts &dib);
// Null for a broken bitmap. With `alpha` the fourth byte of 32 bits a pixel is opacity, the colours
// multiplied with it.
QImage ReadDib(const DibParts &dib, bool alpha = false);

} // namespace vector
