#include "diagram/geometry/Polyline.h"

#include <algorithm>
#include <cmath>
#include <QLineF>

namespace diagram {

double Distance(const QPointF &a, const QPointF &b) { return std::hypot(b.x() - a.x(), b.y() - a.y()); }

double WayLength(std::span<const QPointF> way) {
    double length = 0;
    for (std::size_t i = 1; i < way.size(); ++i) length += Distance(way[i - 1], way[i]);
    return length;
}

WayPlace PlaceOnWay(std::span<const QPointF> way, double distance) {
    WayPlace place{way.front(), {1, 0}, 0};
    double left = std::max(distance, 0.0);
    for (std::size_t i = 1; i < way.size(); ++i) {
        const double length = Distance(way[i - 1], way[i]);
        if (length <= 0) continue;
        const QPointF direction = (way[i] - way[i - 1]) / length;
        place = {way[i - 1] + direction * std::min(left, length), direction, i - 1};
        if (left <= length) break;
        left -= length;
    }
    return place;
}

double NearestOnWay(std::span<const QPointF> way, const QPointF &point) {
    double nearest = Distance(way.front(), point), found = 0, passed = 0;
    for (std::size_t i = 1; i < way.size(); ++i) {
        const double length = Distance(way[i - 1], way[i]);
        if (length <= 0) continue;
        const QPointF direction = (way[i] - way[i - 1]) / length;
        const double along = std::clamp(QPointF::dotProduct(point - way[i - 1], direction), 0.0, length);
        const double away = Distance(way[i - 1] + direction * along, point);
        if (away < nearest) nearest = away, found = passed + along;
        passed += length;
    }
    return found;
}

std::vector<QPointF> StretchOfWay(std::span<const QPointF> way, double from, double to) {
    std::vector<QPointF> stretch(way.begin(), way.end());
    CutEnd(stretch, WayLength(way) - to);
    CutStart(stretch, from);
    return stretch;
}

void CutStart(std::vector<QPointF> &way, double length) {
    if (way.size() < 2 || length <= 0) return;
    const std::size_t last = way.size() - 2;
    std::size_t segment = 0;
    while (segment < last && Distance(way[segment], way[segment + 1]) <= length) {
        length -= Distance(way[segment], way[segment + 1]);
        ++segment;
    }
    const double rest = Distance(way[segment], way[segment + 1]);
    const QPointF start =
        rest > length ? way[segment] + (way[segment + 1] - way[segment]) * (length / rest) : way[segment + 1];
    way.erase(way.begin(), way.begin() + std::ptrdiff_t(segment));
    way.front() = start;
}

void CutEnd(std::vector<QPointF> &way, double length) {
    std::reverse(way.begin(), way.end());
    CutStart(way, length);
    std::reverse(way.begin(), way.end());
}

QPainterPath RoundedWay(std::span<const QPointF> way, double radius) {
    QPainterPath path;
    if (way.empty()) return path;
    path.moveTo(way.front());
    const auto towards = [&](const QPointF &from, const QPointF &to) {
        const QLineF line(from, to);
        const double share = line.length() > 0 ? std::min(radius / line.length(), 0.5) : 0;
        return line.pointAt(share);
    };
    for (std::size_t i = 1; i + 1 < way.size(); ++i) {
        path.lineTo(towards(way[i], way[i - 1]));
        path.quadTo(way[i], towards(way[i], way[i + 1]));
    }
    path.lineTo(way.back());
    return path;
}

} // namespace diagram
