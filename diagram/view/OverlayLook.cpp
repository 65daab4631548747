#include "diagram/view/OverlayLook.h"

#include "diagram/model/Surface.h"

#include <cmath>

namespace diagram {

namespace {

constexpr int kDark = 110;        // grey value below which a surface counts as dark
constexpr double kFarthest = 1e6; // device pixels, far beyond any screen

} // namespace

OverlayLook LookFor(const Surface &surface, const QPainter &painter) {
    const double ratio = painter.device()->devicePixelRatioF();
    if (qGray(support::ToQColor(surface.BackColor()).rgb()) < kDark)
        return {QColor(92, 176, 255),
                QColor(74, 222, 128),
                QColor(255, 121, 198),
                QColor(16, 24, 40),
                Qt::white,
                ratio};
    return {QColor(0, 103, 192), QColor(16, 137, 62), QColor(207, 34, 126),
            QColor(Qt::white),   Qt::black,           ratio};
}

QColor Faded(QColor colour, int alpha) {
    colour.setAlpha(alpha);
    return colour;
}

QPen OverlayLook::Line(const QColor &colour, double pixels) const {
    return {colour, std::max(1.0, std::round(pixels * ratio)) / ratio};
}

QPoint OverlayLook::DevicePixel(const QPointF &place) const {
    const auto pixel = [&](double at) {
        return int(std::floor(std::clamp(at * ratio, -kFarthest, kFarthest)));
    };
    return {pixel(place.x()), pixel(place.y())};
}

int OverlayLook::Thin() const { return std::max(1, int(std::lround(ratio))); }

QPointF OverlayLook::Crisp(const QPointF &place) const {
    return {(std::floor(place.x() * ratio) + 0.5) / ratio, (std::floor(place.y() * ratio) + 0.5) / ratio};
}

QRectF OverlayLook::Crisp(const QRectF &box) const {
    return {Crisp(box.topLeft()), Crisp(box.bottomRight())};
}

} // namespace diagram
