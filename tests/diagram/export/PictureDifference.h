// How much two pictures of the same drawing differ.
#pragma once

#include <algorithm>
#include <QImage>
#include <QPainter>

namespace diagram::testing {

// The part that isn't white.
inline QRect DrawnPart(const QImage &image) {
    constexpr int kNearlyWhite = 245;
    const QImage grey = image.convertToFormat(QImage::Format_Grayscale8);
    QRect drawn;
    for (int y = 0; y < grey.height(); ++y) {
        const uchar *row = grey.constScanLine(y);
        for (int x = 0; x < grey.width(); ++x)
            if (row[x] < kNearlyWhite) drawn |= QRect(x, y, 1, 1);
    }
    return drawn;
}

inline QImage OnWhite(const QImage &image) {
    QImage white(image.size(), QImage::Format_RGB32);
    white.fill(Qt::white);
    QPainter(&white).drawImage(QRect(QPoint(), white.size()), image);
    return white;
}

// Of an image of 32 bits.
inline QRgb PixelOf(const QImage &image, int x, int y) {
    return reinterpret_cast<const QRgb *>(image.constScanLine(y))[x];
}

constexpr int kShifts[] = {0, 8, 16}; // of the three colours of a pixel

inline int Part(QRgb pixel, int shift) { return int(pixel >> shift & 0xFF); }

// How far the pixel is from what `image` has there and right beside it, each colour by itself.
inline int FarFrom(QRgb pixel, const QImage &image, int x, int y) {
    int far = 0;
    for (const int shift : kShifts) {
        int least = 255, most = 0;
        for (int v = std::max(0, y - 1); v <= std::min(image.height() - 1, y + 1); ++v)
            for (int u = std::max(0, x - 1); u <= std::min(image.width() - 1, x + 1); ++u) {
                const int part = Part(PixelOf(image, u, v), shift);
                least = std::min(least, part), most = std::max(most, part);
            }
        const int part = Part(pixel, shift);
        far += std::max({0, least - part, part - most});
    }
    return far;
}

// The sum of the differences of both ways, divided by that from a white sheet: 0 for the same, 1 for an empty
// one. Both are cut to what is drawn and made so small that a shift by a pixel counts nothing.
inline double Difference(const QImage &ours, const QImage &theirs) {
    constexpr int kWidth = 480;
    const QImage whole = OnWhite(ours), other = OnWhite(theirs);
    const QRect drawn = DrawnPart(whole), drawnThere = DrawnPart(other);
    if (drawn.isEmpty() || drawnThere.isEmpty()) return 1;
    const QSize size(kWidth, std::max(1, kWidth * drawn.height() / drawn.width()));
    const auto small = [&](const QImage &image, const QRect &part) {
        return image.copy(part)
            .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_RGB32);
    };
    const QImage a = small(whole, drawn), b = small(other, drawnThere);
    double differs = 0, all = 0;
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) {
            differs += FarFrom(PixelOf(a, x, y), b, x, y) + FarFrom(PixelOf(b, x, y), a, x, y);
            for (const QImage *image : {&a, &b})
                for (const int shift : kShifts) all += 255 - Part(PixelOf(*image, x, y), shift);
        }
    return all > 0 ? differs / all : 1;
}

} // namespace diagram::testing
