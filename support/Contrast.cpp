#include "support/Contrast.h"

#include "support/MixColours.h"

#include <algorithm>
#include <cmath>

namespace support {

namespace {

double Linear(double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

} // namespace

double Luminance(const QColor &colour) {
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
           0.0722 * Linear(colour.blueF());
}

double Contrast(const QColor &a, const QColor &b) {
    const double one = Luminance(a) + 0.05, other = Luminance(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

QColor Readable(const QColor &text, const QColor &ground, const QColor &ink) {
    constexpr double kStep = 0.05;
    if (text.alpha() == 255 && Contrast(text, ground) >= kReadable) return text;
    const QColor plain = Mix(ground, text, text.alphaF());
    for (double share = 0; share < 1; share += kStep)
        if (const QColor mixed = Mix(plain, ink, share); Contrast(mixed, ground) >= kReadable) return mixed;
    return ink;
}

} // namespace support
