#include "vector/player/MetafileForms.h"

#include <cmath>

namespace vector {

namespace {

// Degrees against the clock, y growing downwards, of a point seen from the middle of an ellipse.
double AngleOf(const QRectF &box, const QPointF &at) {
    const QPointF from = at - box.center();
    const double x = from.x() * std::max(std::abs(box.height()), 1e-6),
                 y = from.y() * std::max(std::abs(box.width()), 1e-6);
    return std::atan2(-y, x) * 180 / M_PI;
}

} // namespace

QPainterPath PolygonForm(const QPolygonF &points) {
    QPainterPath form;
    form.addPolygon(points);
    form.closeSubpath();
    return form;
}

QPainterPath LineForm(const QPolygonF &points) {
    QPainterPath form;
    form.addPolygon(points);
    return form;
}

QPainterPath BoxForm(const QRectF &box) {
    QPainterPath form;
    form.addRect(box.normalized());
    return form;
}

QPainterPath EllipseForm(const QRectF &box) {
    QPainterPath form;
    form.addEllipse(box.normalized());
    return form;
}

QPainterPath RoundForm(const QRectF &box, const QSizeF &corner) {
    QPainterPath form;
    form.addRoundedRect(box.normalized(), std::abs(corner.width()) / 2, std::abs(corner.height()) / 2);
    return form;
}

QPainterPath ArcForm(const QRectF &given, const QPointF &from, const QPointF &to, bool clockwise,
                     ArcEnds ends) {
    const QRectF box = given.normalized();
    const double start = AngleOf(box, from);
    double sweep = AngleOf(box, to) - start;
    if (clockwise && sweep >= 0) sweep -= 360;
    if (!clockwise && sweep <= 0) sweep += 360;
    QPainterPath form;
    if (ends == ArcEnds::Pie)
        form.moveTo(box.center());
    else
        form.arcMoveTo(box, start);
    form.arcTo(box, start, sweep);
    if (ends != ArcEnds::Open) form.closeSubpath();
    return form;
}

QPainterPath CurveForm(const QPolygonF &points) {
    QPainterPath form;
    if (points.isEmpty()) return form;
    form.moveTo(points[0]);
    for (qsizetype i = 3; i < points.size(); i += 3) form.cubicTo(points[i - 2], points[i - 1], points[i]);
    return form;
}

} // namespace vector
