// A point of a link, as the model and its files keep it.
#pragma once

#include <QPointF>

namespace diagram {

// Twips.
struct Point {
    float x = 0;
    float y = 0;
    friend bool operator==(const Point &, const Point &) = default;
};

inline QPointF ToQPointF(const Point &point) { return {point.x, point.y}; }
inline Point ToPoint(const QPointF &point) { return {float(point.x()), float(point.y())}; }

} // namespace diagram
