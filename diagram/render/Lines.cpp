#include "diagram/render/Lines.h"

#include "diagram/geometry/Polyline.h"
#include "diagram/render/FarForms.h"

#include <cmath>
#include <QPen>

namespace diagram {

namespace {

constexpr double kOverlap = 1; // device pixels by which a joint lies over the segments at it

// Draws segments one by one, and a short run around each bend so that the sides of the line meet there.
// Several short segments are one run.
class Joints {
public:
    explicit Joints(QPainter &painter) : painter_(painter), reach_(2 * painter.pen().widthF() + 2) {}

    void Add(const QPointF &from, const QPointF &to, bool isFirst, bool isLast) {
        const double length = Distance(from, to);
        if (length < 4 * (reach_ + kOverlap)) {
            if (joint_.isEmpty()) joint_ << from;
            joint_ << to;
            return;
        }
        const QPointF along = (to - from) / length;
        if (!joint_.isEmpty()) End(from + along * (reach_ + kOverlap));
        painter_.drawLine(from + along * (isFirst ? 0 : reach_), to - along * (isLast ? 0 : reach_));
        if (!isLast) joint_ << to - along * (reach_ + kOverlap) << to;
    }
    void End() {
        if (joint_.size() > 1) painter_.drawPolyline(joint_);
        joint_.clear();
    }

private:
    void End(const QPointF &last) {
        joint_ << last;
        End();
    }

    QPainter &painter_;
    double reach_; // device pixels from a bend to the segments that are drawn as such
    QPolygonF joint_;
};

} // namespace

bool IsLevel(const std::vector<QPointF> &route) {
    for (std::size_t i = 1; i < route.size(); ++i)
        if (route[i].x() != route[i - 1].x() && route[i].y() != route[i - 1].y()) return false;
    return true;
}

void DrawLevelRoute(QPainter &painter, const std::vector<QPointF> &route, int width, QRgb colour) {
    const QColor ink = QColor::fromRgb(colour);
    const auto pixel = [width](double at) { return int(std::floor(at + 0.25)) - width / 2; };
    const int reach = width / 2; // by which a bend is filled out, but not an end
    for (std::size_t i = 1; i < route.size(); ++i) {
        const QPointF &a = route[i - 1], &b = route[i];
        QRect bar(
            QPoint(pixel(std::min(a.x(), b.x())), pixel(std::min(a.y(), b.y()))),
            QPoint(pixel(std::max(a.x(), b.x())) + width - 1, pixel(std::max(a.y(), b.y())) + width - 1));
        const int atStart = i == 1 ? reach : 0, atEnd = i + 1 == route.size() ? reach : 0;
        if (a.y() == b.y())
            b.x() >= a.x() ? bar.adjust(atStart, 0, -atEnd, 0) : bar.adjust(atEnd, 0, -atStart, 0);
        else
            b.y() >= a.y() ? bar.adjust(0, atStart, 0, -atEnd) : bar.adjust(0, atEnd, 0, -atStart);
        if (bar.isValid()) painter.fillRect(bar, ink);
    }
}

void DrawRoute(Paint &paint, const std::vector<QPointF> &route) {
    QPainter &painter = paint.Painter();
    if (paint.options.vector || painter.pen().widthF() <= 1) {
        painter.drawPolyline(route.data(), int(route.size()));
    } else if (painter.pen().style() != Qt::SolidLine) {
        DrawFarLine(paint, route);
    } else {
        Joints joints(painter);
        for (std::size_t i = 1; i < route.size(); ++i)
            joints.Add(route[i - 1], route[i], i == 1, i + 1 == route.size());
        joints.End();
    }
}

void DrawCurve(Paint &paint, const std::vector<QPointF> &route) {
    if (paint.options.vector)
        paint.Painter().drawPolyline(route.data(), int(route.size()));
    else
        DrawFarLine(paint, route);
}

} // namespace diagram
