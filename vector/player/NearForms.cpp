#include "vector/player/NearForms.h"

#include <array>
#include <optional>
#include <QLineF>
#include <QPolygonF>

namespace vector {

namespace {

// A half plane: `side` is +1 for what lies above `limit` on the axis, -1 for what lies below.
struct Edge {
    bool vertical;
    double side;
    double limit;

    double Inside(const QPointF &at) const { return ((vertical ? at.y() : at.x()) - limit) * side; }
};

std::array<Edge, 4> EdgesOf(const QRectF &box) {
    return {Edge{false, 1, box.left()}, Edge{false, -1, box.right()}, Edge{true, 1, box.top()},
            Edge{true, -1, box.bottom()}};
}

QPointF Between(const QPointF &a, const QPointF &b, double insideA, double insideB) {
    return a + (b - a) * (insideA / (insideA - insideB));
}

// Sutherland and Hodgman's way: what is left of the polygon on one side of a line.
QPolygonF CutAt(const QPolygonF &polygon, const Edge &edge) {
    QPolygonF left;
    if (polygon.isEmpty()) return left;
    QPointF before = polygon.back();
    double insideBefore = edge.Inside(before);
    for (const QPointF &at : polygon) {
        const double inside = edge.Inside(at);
        if ((inside >= 0) != (insideBefore >= 0)) left << Between(before, at, insideBefore, inside);
        if (inside >= 0) left << at;
        before = at, insideBefore = inside;
    }
    return left;
}

std::optional<QLineF> CutLine(QLineF line, const std::array<Edge, 4> &edges) {
    for (const Edge &edge : edges) {
        const double a = edge.Inside(line.p1()), b = edge.Inside(line.p2());
        if (a < 0 && b < 0) return {};
        if (a < 0) line.setP1(Between(line.p1(), line.p2(), a, b));
        if (b < 0) line.setP2(Between(line.p1(), line.p2(), edge.Inside(line.p1()), b));
    }
    return line;
}

} // namespace

QPainterPath AreaNear(const QPainterPath &form, const QRectF &near) {
    if (near.contains(form.controlPointRect())) return form;
    QPainterPath area;
    area.setFillRule(form.fillRule());
    for (QPolygonF polygon : form.toSubpathPolygons()) {
        for (const Edge &edge : EdgesOf(near)) polygon = CutAt(polygon, edge);
        area.addPolygon(polygon);
        area.closeSubpath();
    }
    return area;
}

QPainterPath LineNear(const QPainterPath &form, const QRectF &near) {
    if (near.contains(form.controlPointRect())) return form;
    const std::array<Edge, 4> edges = EdgesOf(near);
    QPainterPath lines;
    for (const QPolygonF &polygon : form.toSubpathPolygons())
        for (qsizetype i = 1; i < polygon.size(); ++i) {
            const auto cut = CutLine({polygon[i - 1], polygon[i]}, edges);
            if (!cut) continue;
            if (lines.isEmpty() || lines.currentPosition() != cut->p1()) lines.moveTo(cut->p1());
            lines.lineTo(cut->p2());
        }
    return lines;
}

} // namespace vector
