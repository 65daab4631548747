#include "diagram/interaction/BendEdit.h"

#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/Router.h"

#include <algorithm>
#include <cmath>

namespace diagram {

namespace {

LinkForm FormOf(int style) {
    const LinkStyleRow *row = FindLinkStyle(style);
    return row ? row->form : LinkForm::Polyline;
}

// Whether the segment runs level: by the style where the route has as many segments as that, else by its
// points.
bool IsHorizontal(const std::vector<Point> &route, int segment, int style) {
    const LinkStyleRow *row = FindLinkStyle(style);
    if (row && row->directions.size() + 1 == route.size()) return row->directions[size_t(segment)] == 'H';
    const Point &a = route[size_t(segment)];
    const Point &b = route[size_t(segment) + 1];
    return qAbs(b.x - a.x) >= qAbs(b.y - a.y);
}

std::vector<Point> SegmentShifted(const std::vector<Point> &route, int segment, const QPointF &to,
                                  int style) {
    const int bend = segment > 0 ? segment : segment + 1;
    Point moved = route[size_t(bend)];
    if (IsHorizontal(route, segment, style))
        moved.y = float(to.y());
    else
        moved.x = float(to.x());
    return WithBendMoved(style, route, bend, moved);
}

} // namespace

std::vector<Point> BendDragged(const std::vector<Point> &route, int index, const QPointF &to, int style) {
    if (index <= 0 || index + 1 >= std::ssize(route)) return route;
    return WithBendMoved(style, route, index, ToPoint(to));
}

std::vector<Point> SegmentDragged(const std::vector<Point> &route, int segment, const QPointF &to,
                                  int style) {
    if (segment < 0 || segment + 1 >= std::ssize(route)) return route;
    const LinkForm form = FormOf(style);
    if (form == LinkForm::Orthogonal) return SegmentShifted(route, segment, to, style);
    std::vector<Point> result = route;
    if (form == LinkForm::Bezier && route.size() > 2) {
        const auto control = std::clamp<std::ptrdiff_t>(segment, 1, std::ssize(route) - 2);
        result[size_t(control)] = ToPoint(to);
    } else {
        result.insert(result.begin() + segment + 1, ToPoint(to));
    }
    return result;
}

bool IsInLine(const std::vector<Point> &route, int index, double reach) {
    if (index <= 0 || index + 1 >= std::ssize(route)) return false;
    const QPointF from = ToQPointF(route[size_t(index) - 1]);
    const QPointF along = ToQPointF(route[size_t(index) + 1]) - from;
    const QPointF apart = ToQPointF(route[size_t(index)]) - from;
    const double length = std::hypot(along.x(), along.y());
    if (length <= 0) return false;
    const double share = QPointF::dotProduct(apart, along) / (length * length);
    const double off = std::abs(apart.x() * along.y() - apart.y() * along.x()) / length;
    return share > 0 && share < 1 && off <= reach;
}

} // namespace diagram
