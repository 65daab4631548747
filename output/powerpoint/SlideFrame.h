// From a slice's twips to the slide.
#pragma once

#include "diagram/geometry/Units.h"
#include "output/powerpoint/Drawing.h"

#include <algorithm>
#include <QTransform>

namespace powerpoint {

class SlideFrame {
public:
    // `area`, in twips, fills `place`, in points, of the same proportions.
    SlideFrame(const QRectF &area, const QRectF &place)
        : scale_(place.width() * kEmuPerPoint / std::max(area.width(), 1.0)),
          shift_(place.topLeft() * kEmuPerPoint - area.topLeft() * scale_) {}

    QPointF Map(const QPointF &point) const { return point * scale_ + shift_; }
    QRectF Map(const QRectF &box) const { return {Map(box.topLeft()), box.size() * scale_}; }
    QPainterPath Map(const QPainterPath &path) const {
        return QTransform(scale_, 0, 0, scale_, shift_.x(), shift_.y()).map(path);
    }
    double Length(double twips) const { return twips * scale_; }
    // The width on the slide of a line so many pixels wide at zoom 100; a hairline at least.
    double LineWidth(double pixels) const {
        constexpr double kHairline = 0.5;
        return Length(std::max(pixels, kHairline) * diagram::kTwipsPerPixel);
    }
    // By how much fonts of the slice are larger on the slide.
    double FontScale() const { return Length(diagram::kTwipsPerPoint) / kEmuPerPoint; }

private:
    double scale_;
    QPointF shift_;
};

} // namespace powerpoint
