// Arithmetic on routes: runs of straight segments given by their points. Any unit.
#pragma once

#include <QPainterPath>
#include <QPointF>
#include <span>
#include <vector>

namespace diagram {

double Distance(const QPointF &a, const QPointF &b);

// Sum of the lengths of the segments; 0 for fewer than two points.
double RouteLength(std::span<const QPointF> route);

struct RoutePlace {
    QPointF point;
    QPointF direction;   // of length 1; (1, 0) where the route has no length
    std::size_t segment; // on which the place lies
};

// The place at `distance` along the route, held between its ends. A route must have at least one point.
RoutePlace PlaceOnRoute(std::span<const QPointF> route, double distance);

// How far along the route the place on it is that is nearest to the point. A route must have at least one
// point.
double NearestOnRoute(std::span<const QPointF> route, const QPointF &point);

// What of the route lies between two distances along it, in that order: two points at least, unless the route
// has fewer.
std::vector<QPointF> StretchOfRoute(std::span<const QPointF> route, double from, double to);

// Takes `length` off the start of the route. What is left of a route that is shorter is its last point twice.
void CutStart(std::vector<QPointF> &route, double length);
void CutEnd(std::vector<QPointF> &route, double length);

// The route with its corners rounded off; less where a segment is short.
QPainterPath RoundedRoute(std::span<const QPointF> route, double radius);

} // namespace diagram
