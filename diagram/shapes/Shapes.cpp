#include "diagram/shapes/Shapes.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <QTransform>

namespace diagram {

namespace {

// The box in which the form is built before it is turned into `box`: at the origin, sides swapped for odd
// turns.
QRectF UnturnedBox(int orientation, const QRectF &box) {
    return orientation & 1 ? QRectF(0, 0, box.height(), box.width())
                           : QRectF(0, 0, box.width(), box.height());
}

QTransform Turn(int orientation, const QRectF &box) {
    switch (orientation & 3) {
    case 1:
        return {0, 1, -1, 0, box.right(), box.top()};
    case 2:
        return {-1, 0, 0, -1, box.right(), box.bottom()};
    case 3:
        return {0, -1, 1, 0, box.left(), box.bottom()};
    default:
        return QTransform::fromTranslate(box.left(), box.top());
    }
}

QPainterPath Turned(QPainterPath (*form)(const QRectF &), int orientation, const QRectF &box) {
    if ((orientation & 3) == 0) return form(box);
    return Turn(orientation, box).map(form(UnturnedBox(orientation, box)));
}

// Where from + t (to - from) meets the segment a-b, as t in 0..1.
std::optional<double> MeetsSegment(const QPointF &from, const QPointF &to, const QPointF &a,
                                   const QPointF &b) {
    const QPointF way = to - from, side = b - a, gap = a - from;
    const double cross = way.x() * side.y() - way.y() * side.x();
    if (cross == 0) return {};
    const double t = (gap.x() * side.y() - gap.y() * side.x()) / cross;
    const double u = (gap.x() * way.y() - gap.y() * way.x()) / cross;
    constexpr double kSlack = 1e-9;
    if (t < -kSlack || t > 1 + kSlack || u < -kSlack || u > 1 + kSlack) return {};
    return std::clamp(t, 0.0, 1.0);
}

std::optional<double> MeetsPolygon(const QPointF &from, const QPointF &to, std::span<const QPointF> corners) {
    std::optional<double> nearest;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const auto t = MeetsSegment(from, to, corners[i], corners[(i + 1) % corners.size()]);
        if (t && (!nearest || *t < *nearest)) nearest = t;
    }
    return nearest;
}

std::optional<double> MeetsPath(const QPointF &from, const QPointF &to, const QPainterPath &path) {
    std::optional<double> nearest;
    for (const QPolygonF &polygon : path.toSubpathPolygons()) {
        const auto t = MeetsPolygon(from, to, {polygon.constData(), std::size_t(polygon.size())});
        if (t && (!nearest || *t < *nearest)) nearest = t;
    }
    return nearest;
}

// `to` is the middle.
std::optional<double> MeetsEllipse(const QPointF &from, const QPointF &to, const QRectF &box) {
    const double rx = box.width() / 2, ry = box.height() / 2;
    if (rx <= 0 || ry <= 0) return {};
    const double away = std::hypot((from.x() - to.x()) / rx, (from.y() - to.y()) / ry);
    if (away < 1) return {};
    return 1 - 1 / away;
}

// How many times `half` is in `way`; endless for a side without length.
double Times(double way, double half) {
    if (half > 0) return std::abs(way) / half;
    return way == 0 ? 0 : std::numeric_limits<double>::infinity();
}

std::optional<double> MeetsRectangle(const QPointF &from, const QPointF &to, const QRectF &box) {
    const double away =
        std::max(Times(from.x() - to.x(), box.width() / 2), Times(from.y() - to.y(), box.height() / 2));
    if (away < 1) return {};
    return 1 - 1 / away;
}

std::optional<double> Meets(const ShapeRow &row, int orientation, const QRectF &box, const QPointF &from) {
    const QPointF middle = box.center();
    switch (row.form) {
    case ShapeForm::Rectangle:
        return MeetsRectangle(from, middle, box);
    case ShapeForm::Ellipse:
        return MeetsEllipse(from, middle, box);
    case ShapeForm::Polygon: {
        QPointF corners[kMostCorners];
        const int count = TurnedCorners(row, orientation, box, corners);
        return MeetsPolygon(from, middle, {corners, std::size_t(count)});
    }
    case ShapeForm::Path:
        break;
    }
    return MeetsPath(from, middle, Turned(row.outline, orientation, box));
}

const ShapeRow &RowOrRectangle(int shape) {
    const ShapeRow *row = FindShape(shape);
    return row ? *row : *FindShape(1);
}

} // namespace

QPainterPath Outline(int shape, int orientation, const QRectF &box) {
    return Turned(RowOrRectangle(shape).outline, orientation, box);
}

QPainterPath Detail(int shape, int orientation, const QRectF &box) {
    const ShapeRow &row = RowOrRectangle(shape);
    return row.detail ? Turned(row.detail, orientation, box) : QPainterPath();
}

QRectF TextArea(int shape, int orientation, const QRectF &box) {
    const BoxPart &part = RowOrRectangle(shape).textArea;
    const QRectF unturned = UnturnedBox(orientation, box);
    const QRectF area(QPointF(part.left * unturned.width(), part.top * unturned.height()),
                      QPointF(part.right * unturned.width(), part.bottom * unturned.height()));
    return Turn(orientation, box).mapRect(area);
}

int TurnedCorners(const ShapeRow &row, int orientation, const QRectF &box, QPointF *corners) {
    const QRectF unturned = UnturnedBox(orientation, box);
    const double width = unturned.width(), height = unturned.height(), side = std::min(width, height);
    for (const ShapeCorner &corner : row.corners) {
        const double x = corner.x * width + corner.dx * side, y = corner.y * height + corner.dy * side;
        switch (orientation & 3) {
        case 1:
            *corners++ = {box.right() - y, box.top() + x};
            break;
        case 2:
            *corners++ = {box.right() - x, box.bottom() - y};
            break;
        case 3:
            *corners++ = {box.left() + y, box.bottom() - x};
            break;
        default:
            *corners++ = {box.left() + x, box.top() + y};
            break;
        }
    }
    return int(row.corners.size());
}

QPointF OutlineCrossing(int shape, int orientation, const QRectF &box, const QPointF &from) {
    const QPointF middle = box.center();
    const auto t = Meets(RowOrRectangle(shape), orientation, box, from);
    return t ? from + *t * (middle - from) : middle;
}

} // namespace diagram
