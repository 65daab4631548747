#include "diagram/render/FarForms.h"

#include "diagram/geometry/Polyline.h"
#include "vector/geometry/Clipping.h"

#include <cmath>
#include <numeric>
#include <utility>

namespace diagram {

namespace {

constexpr double kFarSide = 8000; // device pixels
constexpr double kSpared = 100;   // device pixels of a line around what is painted that aren't cut off
constexpr double kMargin = 16;    // device pixels around what is painted

QRectF PaintedArea(const Paint &paint, double lineWidth) {
    const double margin = kMargin + 2 * lineWidth;
    return paint.frame.Map(paint.area).adjusted(-margin, -margin, margin, margin);
}

// The dashes of a run lie where those of the whole line would.
void DrawRun(QPainter &painter, const QPolygonF &run, double along) {
    if (run.size() < 2) return;
    const QPen whole = painter.pen();
    const QList<double> dashes = whole.dashPattern();
    if (!dashes.isEmpty()) {
        QPen pen = whole;
        const double length = std::accumulate(dashes.begin(), dashes.end(), 0.0);
        pen.setDashOffset(std::fmod(along / std::max(pen.widthF(), 1.0), length));
        painter.setPen(pen);
    }
    painter.drawPolyline(run);
    painter.setPen(whole);
}

void StrokeInside(QPainter &painter, const QRectF &area, const QPolygonF &line) {
    QPolygonF run;
    double length = 0, started = 0;
    for (qsizetype i = 1; i < line.size(); ++i) {
        const QPointF &start = line[i - 1], way = line[i] - start;
        const double size = Distance(start, line[i]);
        const vector::Stretch seen = vector::StretchWithin(area, start, line[i]);
        const bool any = !seen.IsEmpty();
        if (any && run.isEmpty()) started = length + seen.from * size, run << start + way * seen.from;
        if (any) run << start + way * seen.to;
        if (!any || seen.to < 1) DrawRun(painter, std::exchange(run, {}), started);
        length += size;
    }
    DrawRun(painter, run, started);
}

// Cutting what nearly is inside as a whole saves nothing.
bool IsNearlyInside(const QRectF &area, const QRectF &box) {
    return area.adjusted(-kSpared, -kSpared, kSpared, kSpared).contains(box);
}

} // namespace

bool IsFar(const Paint &paint, const QRectF &box) {
    return !paint.options.vector && std::max(box.width(), box.height()) > kFarSide;
}

QPainterPath PaintedPart(const Paint &paint, const QPainterPath &outline) {
    QPainterPath part;
    part.setFillRule(outline.fillRule());
    for (const QPolygonF &whole : outline.toSubpathPolygons()) {
        const QPolygonF polygon = vector::PolygonWithin(PaintedArea(paint, 0), whole);
        if (polygon.size() > 2) part.addPolygon(polygon), part.closeSubpath();
    }
    return part;
}

void DrawFar(Paint &paint, const QPainterPath &outline) {
    QPainter &painter = paint.Painter();
    const QPen pen = painter.pen();
    if (painter.brush().style() != Qt::NoBrush) {
        painter.setPen(Qt::NoPen);
        painter.drawPath(PaintedPart(paint, outline));
        painter.setPen(pen);
    }
    if (pen.style() == Qt::NoPen) return;
    const QRectF area = PaintedArea(paint, pen.widthF());
    for (const QPolygonF &line : outline.toSubpathPolygons()) StrokeInside(painter, area, line);
}

void DrawFarLine(Paint &paint, const std::vector<QPointF> &line) {
    QPainter &painter = paint.Painter();
    const QRectF area = PaintedArea(paint, painter.pen().widthF());
    const QPolygonF polygon(QList<QPointF>(line.begin(), line.end()));
    if (IsNearlyInside(area, polygon.boundingRect()))
        painter.drawPolyline(polygon);
    else
        StrokeInside(painter, area, polygon);
}

void DrawFarPath(Paint &paint, const QPainterPath &path) {
    QPainter &painter = paint.Painter();
    const QRectF area = PaintedArea(paint, painter.pen().widthF());
    if (paint.options.vector || IsNearlyInside(area, path.controlPointRect())) return painter.drawPath(path);
    for (const QPolygonF &line : path.toSubpathPolygons()) StrokeInside(painter, area, line);
}

} // namespace diagram
