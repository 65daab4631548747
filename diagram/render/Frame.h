// The way from twips to the device, with the rounding that keeps lines crisp.
#pragma once

#include "diagram/geometry/Point.h"
#include "diagram/geometry/Units.h"

#include <algorithm>
#include <cmath>
#include <QRectF>

namespace diagram {

struct Frame {
    double xScale = 1, yScale = 1; // device pixels a twip
    QPointF origin;                // the surface point at the device's (0, 0), twips
    bool snap = false;             // round to whole pixels: a raster device without turning
    double dot = 1;                // device pixels of what is meant to be one pixel on the screen, whole

    double Scale() const { return std::min(xScale, yScale); }
    double Length(double twips) const { return twips * Scale(); }
    QPointF Map(const QPointF &point) const {
        return {(point.x() - origin.x()) * xScale, (point.y() - origin.y()) * yScale};
    }
    QPointF Map(const Point &point) const { return Map(QPointF(point.x, point.y)); }
    QRectF Map(const QRectF &box) const {
        return {Map(box.topLeft()), QSizeF(box.width() * xScale, box.height() * yScale)};
    }

    // Width on the device of a line that is `pixels` wide at zoom 100; whole where pixels are snapped, never
    // less than a hairline.
    double LineWidth(double pixels) const {
        constexpr double kHairline = 0.5;
        const double width = Length(pixels * kTwipsPerPixel);
        if (!snap) return std::max(width, Length(kHairline * kTwipsPerPixel));
        constexpr double kRounding = 1e-6; // zooms like 125 per cent lie between two widths
        return std::max(1.0, std::floor(width + 0.5 + kRounding));
    }
    // Where the middle of a line of that width must lie to cover whole pixels.
    double SnapLine(double at, double width) const {
        if (!snap) return at;
        return int(width) & 1 ? std::floor(at) + 0.5 : std::floor(at + 0.5);
    }
    QPointF SnapLine(const QPointF &at, double width) const {
        return {SnapLine(at.x(), width), SnapLine(at.y(), width)};
    }
    // The box whose sides are the middles of border lines of that width.
    QRectF SnapBox(const QRectF &box, double width) const {
        return QRectF(SnapLine(box.topLeft(), width), SnapLine(box.bottomRight(), width));
    }
};

} // namespace diagram
