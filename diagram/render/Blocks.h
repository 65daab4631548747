// Filling of small blocks of pixels: into the memory of the picture where the painter allows it, else by the
// painter.
#pragma once

#include <QPainter>
#include <QRect>
#include <QRgb>

namespace diagram {

class Blocks {
public:
    // The painter must only be shifted, by whole pixels.
    explicit Blocks(QPainter &painter);

    void Fill(int x, int y, int width, int height, QRgb colour);
    // One pixel wide; the last pixel is set too.
    void Line(double x0, double y0, double x1, double y1, QRgb colour);
    const QRect &Area() const { return area_; } // outside of it nothing is filled

private:
    bool UseMemory();

    QPainter &painter_;
    QRect area_;
    // Pixels of the device: null when the painter must do it.
    QRgb *pixels_ = nullptr;
    qsizetype stride_ = 0; // in pixels
};

} // namespace diagram
