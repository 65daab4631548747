#include "diagram/render/ArrowPainter.h"

#include "diagram/shapes/Arrows.h"

#include <cmath>
#include <vector>

namespace diagram {

namespace {

// A head taken apart: runs of points, closed or not, and at most one circle.
struct ArrowParts {
    std::vector<QPolygonF> runs;
    std::vector<bool> closed;
    QPointF middle;
    double radius = 0;
    bool bendsAtTip = false; // so that half of a line's width stands out in front of it
};

bool BendsAtTip(const ArrowParts &parts) {
    if (parts.radius > 0 && std::abs(parts.middle.x() + parts.radius) < 1e-6) return true;
    for (std::size_t i = 0; i < parts.runs.size(); ++i) {
        const qsizetype at = parts.runs[i].indexOf(QPointF());
        if (at > 0 ? at + 1 < parts.runs[i].size() : at == 0 && parts.closed[i]) return true;
    }
    return false;
}

void AddRun(ArrowParts &parts, const QPolygonF &run, bool isCircle) {
    if (run.isEmpty()) return;
    if (isCircle) {
        const QRectF bounds = run.boundingRect();
        parts.middle = bounds.center();
        parts.radius = bounds.width() / 2;
        return;
    }
    parts.closed.push_back(run.size() > 2 && run.first() == run.last());
    parts.runs.push_back(run);
}

ArrowParts TakeApart(const ArrowRow &row) {
    ArrowParts parts;
    if (!row.path) return parts;
    const QPainterPath path = row.path();
    QPolygonF run;
    bool isCircle = false;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isMoveTo()) {
            AddRun(parts, run, isCircle);
            run.clear();
            isCircle = false;
        }
        isCircle = isCircle || element.isCurveTo();
        run.append(QPointF(element));
    }
    AddRun(parts, run, isCircle);
    parts.bendsAtTip = BendsAtTip(parts);
    return parts;
}

const ArrowParts &PartsOf(int value) {
    static const std::vector<ArrowParts> all = [] {
        std::vector<ArrowParts> parts;
        for (const ArrowRow &row : ArrowTable()) parts.push_back(TakeApart(row));
        return parts;
    }();
    return all[std::size_t(value)];
}

struct Placing {
    const ArrowHead &head;
    double back; // by which the tip stands behind its place
    QPointF operator()(const QPointF &at) const {
        return head.tip - head.direction * back + head.direction * (at.x() * head.scale) +
               QPointF(-head.direction.y(), head.direction.x()) * (at.y() * head.scale);
    }
};

void DrawRun(QPainter &painter, const QPolygonF &run, bool closed, const Placing &place) {
    constexpr int kMost = 8; // no head has more points
    QPointF points[kMost];
    const int count = std::min(int(run.size()) - (closed ? 1 : 0), kMost);
    for (int i = 0; i < count; ++i) points[i] = place(run[i]);
    if (closed)
        painter.drawPolygon(points, count);
    else
        painter.drawPolyline(points, count);
}

} // namespace

void PaintArrow(Paint &paint, const ArrowHead &head, QRgb colour, double width) {
    const ArrowRow *row = FindArrow(head.value);
    if (!row || !row->path) return;
    const ArrowParts &parts = PartsOf(head.value);
    // Closed forms that are filled in the line's colour need no line of their own, but for the open part of a
    // closed fork.
    const bool solid = row->fill == ArrowFill::Line && parts.runs.size() < 2;
    const double line = solid ? 0 : std::min(width, head.scale / 5);
    if (solid)
        paint.pencil.NoLine();
    else
        paint.pencil.Line(colour, line, 0, Qt::RoundJoin);
    if (row->fill != ArrowFill::None) paint.pencil.Fill(row->fill == ArrowFill::Line ? colour : paint.paper);
    paint.pencil.Smooth(true);
    const Placing place{head, parts.bendsAtTip ? line / 2 : 0};
    for (std::size_t i = 0; i < parts.runs.size(); ++i) {
        if (i == 1 && row->fill == ArrowFill::Line) paint.pencil.NoFill();
        DrawRun(paint.Painter(), parts.runs[i], parts.closed[i], place);
    }
    if (parts.radius > 0)
        paint.Painter().drawEllipse(place(parts.middle), parts.radius * head.scale,
                                    parts.radius * head.scale);
}

} // namespace diagram
