// One colour mixed into another, without its alpha.
#pragma once

#include <QColor>

namespace support {

// `share` of `b` in `a`, 0 to 1; each part rounded to the nearest number.
inline QRgb Mix(QRgb a, QRgb b, double share) {
    const auto mix = [share](int x, int y) { return qRound(x + (y - x) * share); };
    return qRgb(mix(qRed(a), qRed(b)), mix(qGreen(a), qGreen(b)), mix(qBlue(a), qBlue(b)));
}
inline QColor Mix(const QColor &a, const QColor &b, double share) {
    return QColor(Mix(a.rgb(), b.rgb(), share));
}

} // namespace support
