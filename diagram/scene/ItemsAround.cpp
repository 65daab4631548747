#include "diagram/scene/ItemsAround.h"

#include <cmath>
#include <limits>

namespace diagram {

namespace {

float Below(double value) {
    const float near = float(value);
    return double(near) <= value ? near : std::nextafter(near, -std::numeric_limits<float>::infinity());
}

float Above(double value) {
    const float near = float(value);
    return double(near) >= value ? near : std::nextafter(near, std::numeric_limits<float>::infinity());
}

} // namespace

FloatBox BoxAround(const QRectF &rect) {
    return {Below(rect.left()), Below(rect.top()), Above(rect.right()), Above(rect.bottom())};
}

} // namespace diagram
