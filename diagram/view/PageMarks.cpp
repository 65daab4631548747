#include "diagram/view/PageMarks.h"

#include "diagram/view/OverlayLook.h"
#include "diagram/view/Viewport.h"

#include <QPainter>
#include <QPainterPath>

namespace diagram {

namespace {

constexpr int kBreakAlpha = 120, kShadeAlpha = 20;

} // namespace

void PaintPageBreaks(QPainter &painter, std::span<const QLineF> breaks, const Surface &surface,
                     const Viewport &viewport) {
    if (breaks.empty()) return;
    const OverlayLook look = LookFor(surface, painter);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    QPen pen = look.Line(Faded(look.guide, kBreakAlpha), 1);
    pen.setDashPattern({6, 4});
    painter.setPen(pen);
    for (const QLineF &each : breaks) {
        const QLineF line = viewport.ToPixels().map(each);
        painter.drawLine(look.Crisp(line.p1()), look.Crisp(line.p2()));
    }
    painter.restore();
}

void PaintBeyondTheOrigin(QPainter &painter, const Surface &surface, const Viewport &viewport,
                          const QRectF &area) {
    const QPointF origin = viewport.FromSurface(QPointF(0, 0));
    if (origin.x() <= area.left() && origin.y() <= area.top()) return;
    const OverlayLook look = LookFor(surface, painter);
    QPainterPath beyond;
    beyond.addRect(area);
    const QRectF surfaceItself(origin, QPointF(area.right(), area.bottom()));
    if (surfaceItself.isValid()) beyond.addRect(surfaceItself);
    painter.fillPath(beyond, Faded(look.shade, kShadeAlpha));
}

} // namespace diagram
