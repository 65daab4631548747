#include "diagram/view/Wheel.h"

namespace diagram {

namespace {

constexpr int kNotch = 120;            // eighths of a degree
constexpr double kPixelsOfAngle = 0.5; // for each of these

} // namespace

int Wheel::Notches(int angle) {
    const bool turned = (angle < 0 && angle_ > 0) || (angle > 0 && angle_ < 0);
    angle_ = (turned ? 0 : angle_) + angle;
    const int notches = angle_ / kNotch;
    angle_ %= kNotch;
    return notches;
}

QPoint Wheel::Pixels(const QPoint &angle) {
    pixels_ += QPointF(angle) * kPixelsOfAngle;
    const QPoint whole(int(pixels_.x()), int(pixels_.y()));
    pixels_ -= whole;
    return whole;
}

} // namespace diagram
