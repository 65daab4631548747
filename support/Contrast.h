// How well colours can be told apart, as WCAG 2 measures it. All colours opaque unless said otherwise.
#pragma once

#include <QColor>

namespace support {

// The contrast from which texts can be read.
constexpr double kReadable = 4.5;

// The relative luminance, 0 to 1.
double Luminance(const QColor &colour);
// How far the luminances of two colours are apart, 1 to 21.
double Contrast(const QColor &a, const QColor &b);
// `text`, which may be transparent in part, where it can be read on `ground`, else moved towards `ink` as far
// as it takes.
QColor Readable(const QColor &text, const QColor &ground, const QColor &ink);

} // namespace support
