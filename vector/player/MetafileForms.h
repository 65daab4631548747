// Forms of records as paths.
#pragma once

#include <QPainterPath>
#include <QPolygonF>

namespace vector {

enum class ArcEnds { Open, Chord, Pie };

QPainterPath PolygonForm(const QPolygonF &points);
QPainterPath LineForm(const QPolygonF &points);
QPainterPath BoxForm(const QRectF &box);
QPainterPath EllipseForm(const QRectF &box);
// `corner` is the size of the whole ellipse of which a quarter stands at each corner.
QPainterPath RoundForm(const QRectF &box, const QSizeF &corner);
// The part of the ellipse in `box` from the ray through `from` to the one through `to`, against the clock
// unless `clockwise`.
QPainterPath ArcForm(const QRectF &box, const QPointF &from, const QPointF &to, bool clockwise, ArcEnds ends);
// The first point is where it starts, each three after it are a curve.
QPainterPath CurveForm(const QPolygonF &points);

} // namespace vector
