// Arithmetic on ways: runs of straight segments given by their points. Any unit.
#pragma once

#include <QPainterPath>
#include <QPointF>
#include <span>
#include <vector>

namespace diagram {

double Distance(const QPointF &a, const QPointF &b);

// Sum of the lengths of the segments; 0 for fewer than two points.
double WayLength(std::span<const QPointF> way);

struct WayPlace {
    QPointF point;
    QPointF direction;   // of length 1; (1, 0) where the way has no length
    std::size_t segment; // on which the place lies
};

// The place at `distance` along the way, held between its ends. A way must have at least one point.
WayPlace PlaceOnWay(std::span<const QPointF> way, double distance);

// How far along the way the place on it is that is nearest to the point. A way must have at least one point.
double NearestOnWay(std::span<const QPointF> way, const QPointF &point);

// What of the way lies between two distances along it, in that order: two points at least, unless the way has
// fewer.
std::vector<QPointF> StretchOfWay(std::span<const QPointF> way, double from, double to);

// Takes `length` off the start of the way. What is left of a way that is shorter is its last point twice.
void CutStart(std::vector<QPointF> &way, double length);
void CutEnd(std::vector<QPointF> &way, double length);

// The way with its corners rounded off; less where a segment is short.
QPainterPath RoundedWay(std::span<const QPointF> way, double radius);

} // namespace diagram
