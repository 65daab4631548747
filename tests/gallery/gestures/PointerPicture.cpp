#include "gallery/gestures/PointerPicture.h"

#include <QPainter>
#include <QPainterPath>

namespace gallery {

namespace {

QPainterPath Arrow() {
    QPainterPath path;
    path.addPolygon(QPolygonF{{{0, 0}, {0, 16}, {4, 12.5}, {6.5, 18}, {9, 17}, {6.5, 11.5}, {11.5, 11}}});
    path.closeSubpath();
    return path;
}

// A line with a head at both ends, through the origin.
QPainterPath BothWays(double x, double y) {
    QPainterPath path;
    for (const int side : {-1, 1}) {
        const QPointF tip(side * x * 9, side * y * 9);
        const QPointF back = tip * 0.55;
        const QPointF across(-y * 3.5, x * 3.5);
        path.moveTo(0, 0);
        path.lineTo(tip);
        path.moveTo(back + across);
        path.lineTo(tip);
        path.lineTo(back - across);
    }
    return path;
}

QPainterPath Cross(double reach, const QPointF &middle = {}) {
    QPainterPath path;
    path.moveTo(middle - QPointF(reach, 0));
    path.lineTo(middle + QPointF(reach, 0));
    path.moveTo(middle - QPointF(0, reach));
    path.lineTo(middle + QPointF(0, reach));
    return path;
}

QPainterPath Hand(bool closed) {
    QPainterPath path;
    path.addRoundedRect(-6, closed ? -3 : -1, 12, closed ? 9 : 8, 3, 3);
    for (int finger = -1; finger <= 1 && !closed; ++finger) path.addRect(finger * 4 - 1.5, -8, 3, 7);
    return path;
}

QPainterPath Both(QPainterPath one, const QPainterPath &other) {
    one.addPath(other);
    return one;
}

QPainterPath PathOf(Qt::CursorShape shape) {
    constexpr double kHalf = 0.7071;
    switch (shape) {
    case Qt::CrossCursor:
        return Cross(8);
    case Qt::SizeAllCursor:
        return Both(BothWays(1, 0), BothWays(0, 1));
    case Qt::SizeHorCursor:
    case Qt::SplitHCursor:
        return BothWays(1, 0);
    case Qt::SizeVerCursor:
    case Qt::SplitVCursor:
        return BothWays(0, 1);
    case Qt::SizeFDiagCursor:
        return BothWays(kHalf, kHalf);
    case Qt::SizeBDiagCursor:
        return BothWays(kHalf, -kHalf);
    case Qt::OpenHandCursor:
    case Qt::ClosedHandCursor:
        return Hand(shape == Qt::ClosedHandCursor);
    case Qt::PointingHandCursor: {
        QPainterPath path = Hand(true).translated(3, 12);
        path.addRect(-1.5, 0, 3, 10);
        return path;
    }
    case Qt::DragCopyCursor:
        return Both(Arrow(), Cross(4, {15, 15}));
    case Qt::ForbiddenCursor: {
        QPainterPath path;
        path.addEllipse(QPointF(), 8, 8);
        path.moveTo(-5, -5);
        path.lineTo(5, 5);
        return path;
    }
    default:
        return Arrow();
    }
}

} // namespace

void PaintPointerPicture(QPainter &painter, Qt::CursorShape shape, const QPoint &at) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(at);
    const QPainterPath path = PathOf(shape);
    painter.setPen(QPen(Qt::white, 3.5));
    painter.drawPath(path);
    painter.setPen(QPen(Qt::black, 1.4));
    const bool solid = shape == Qt::ArrowCursor || shape == Qt::DragCopyCursor;
    painter.setBrush(solid ? QBrush(Qt::black) : QBrush(Qt::NoBrush));
    painter.drawPath(path);
    painter.restore();
}

} // namespace gallery
