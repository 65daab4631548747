#include "diagram/render/Forms.h"

#include "diagram/render/FarForms.h"

namespace diagram {

void DrawForm(Paint &paint, const ShapeRow &row, int orientation, const QRectF &box) {
    QPainter &painter = paint.Painter();
    if (IsFar(paint, box)) {
        paint.pencil.Smooth(!paint.frame.snap || row.form != ShapeForm::Rectangle);
        return DrawFar(paint, Outline(row.value, orientation, box));
    }
    switch (row.form) {
    case ShapeForm::Rectangle:
        paint.pencil.Smooth(!paint.frame.snap);
        painter.drawRect(box);
        return;
    case ShapeForm::Ellipse:
        paint.pencil.Smooth(true);
        painter.drawEllipse(box);
        return;
    case ShapeForm::Polygon: {
        QPointF corners[kMostCorners];
        const int count = TurnedCorners(row, orientation, box, corners);
        paint.pencil.Smooth(true);
        painter.drawPolygon(corners, count);
        return;
    }
    case ShapeForm::Path:
        break;
    }
    paint.pencil.Smooth(true);
    painter.drawPath(Outline(row.value, orientation, box));
}

void FrameBox(QPainter &painter, const QRectF &box, int width, QRgb colour) {
    const QColor ink = QColor::fromRgb(colour);
    const auto first = [width](double at) { return int(std::floor(at + 0.25)) - width / 2; };
    const int left = first(box.left()), top = first(box.top()), right = first(box.right()),
              bottom = first(box.bottom());
    painter.fillRect(QRect(left, top, right - left + width, width), ink);
    if (bottom <= top) return;
    painter.fillRect(QRect(left, bottom, right - left + width, width), ink);
    const int inside = bottom - top - width;
    if (inside <= 0) return;
    painter.fillRect(QRect(left, top + width, width, inside), ink);
    if (right > left) painter.fillRect(QRect(right, top + width, width, inside), ink);
}

} // namespace diagram
