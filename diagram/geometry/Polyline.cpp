#include "diagram/geometry/Polyline.h"

#include <algorithm>
#include <cmath>
#include <QLineF>

namespace diagram {

double Distance(const QPointF &a, const QPointF &b) { return std::hypot(b.x() - a.x(), b.y() - a.y()); }

double RouteLength(std::span<const QPointF> route) {
    double length = 0;
    for (std::size_t i = 1; i < route.size(); ++i) length += Distance(route[i - 1], route[i]);
    return length;
}

RoutePlace PlaceOnRoute(std::span<const QPointF> route, double distance) {
    RoutePlace place{route.front(), {1, 0}, 0};
    double left = std::max(distance, 0.0);
    for (std::size_t i = 1; i < route.size(); ++i) {
        const double length = Distance(route[i - 1], route[i]);
        if (length <= 0) continue;
        const QPointF direction = (route[i] - route[i - 1]) / length;
        place = {route[i - 1] + direction * std::min(left, length), direction, i - 1};
        if (left <= length) break;
        left -= length;
    }
    return place;
}

double NearestOnRoute(std::span<const QPointF> route, const QPointF &point) {
    double nearest = Distance(route.front(), point), found = 0, passed = 0;
    for (std::size_t i = 1; i < route.size(); ++i) {
        const double length = Distance(route[i - 1], route[i]);
        if (length <= 0) continue;
        const QPointF direction = (route[i] - route[i - 1]) / length;
        const double along = std::clamp(QPointF::dotProduct(point - route[i - 1], direction), 0.0, length);
        const double away = Distance(route[i - 1] + direction * along, point);
        if (away < nearest) nearest = away, found = passed + along;
        passed += length;
    }
    return found;
}

std::vector<QPointF> StretchOfRoute(std::span<const QPointF> route, double from, double to) {
    std::vector<QPointF> stretch(route.begin(), route.end());
    CutEnd(stretch, RouteLength(route) - to);
    CutStart(stretch, from);
    return stretch;
}

void CutStart(std::vector<QPointF> &route, double length) {
    if (route.size() < 2 || length <= 0) return;
    const std::size_t last = route.size() - 2;
    std::size_t segment = 0;
    while (segment < last && Distance(route[segment], route[segment + 1]) <= length) {
        length -= Distance(route[segment], route[segment + 1]);
        ++segment;
    }
    const double rest = Distance(route[segment], route[segment + 1]);
    const QPointF start = rest > length
                              ? route[segment] + (route[segment + 1] - route[segment]) * (length / rest)
                              : route[segment + 1];
    route.erase(route.begin(), route.begin() + std::ptrdiff_t(segment));
    route.front() = start;
}

void CutEnd(std::vector<QPointF> &route, double length) {
    std::reverse(route.begin(), route.end());
    CutStart(route, length);
    std::reverse(route.begin(), route.end());
}

QPainterPath RoundedRoute(std::span<const QPointF> route, double radius) {
    QPainterPath path;
    if (route.empty()) return path;
    path.moveTo(route.front());
    const auto towards = [&](const QPointF &from, const QPointF &to) {
        const QLineF line(from, to);
        const double share = line.length() > 0 ? std::min(radius / line.length(), 0.5) : 0;
        return line.pointAt(share);
    };
    for (std::size_t i = 1; i + 1 < route.size(); ++i) {
        path.lineTo(towards(route[i], route[i - 1]));
        path.quadTo(route[i], towards(route[i], route[i + 1]));
    }
    path.lineTo(route.back());
    return path;
}

} // namespace diagram
