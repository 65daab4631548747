#include "vector/player/NearForms.h"

#include "vector/geometry/Clipping.h"

namespace vector {

QPainterPath AreaNear(const QPainterPath &form, const QRectF &near) {
    if (near.contains(form.controlPointRect())) return form;
    QPainterPath area;
    area.setFillRule(form.fillRule());
    for (const QPolygonF &polygon : form.toSubpathPolygons()) {
        area.addPolygon(PolygonWithin(near, polygon));
        area.closeSubpath();
    }
    return area;
}

QPainterPath LineNear(const QPainterPath &form, const QRectF &near) {
    if (near.contains(form.controlPointRect())) return form;
    QPainterPath lines;
    for (const QPolygonF &polygon : form.toSubpathPolygons())
        for (qsizetype i = 1; i < polygon.size(); ++i) {
            const QPointF start = polygon[i - 1], way = polygon[i] - start;
            const Stretch seen = StretchWithin(near, start, polygon[i]);
            if (seen.IsEmpty()) continue;
            const QPointF from = start + way * seen.from;
            if (lines.isEmpty() || lines.currentPosition() != from) lines.moveTo(from);
            lines.lineTo(start + way * seen.to);
        }
    return lines;
}

} // namespace vector
