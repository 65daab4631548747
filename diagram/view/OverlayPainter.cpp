#include "diagram/view/OverlayPainter.h"

#include "diagram/interaction/Overlay.h"
#include "diagram/model/Surface.h"
#include "diagram/view/Marks.h"
#include "diagram/view/SelectionPainter.h"
#include "diagram/view/SurfaceView.h"
#include "diagram/view/Viewport.h"

#include <algorithm>
#include <QFontMetrics>
#include <QPainter>

namespace diagram {

namespace {

constexpr double kTick = 4;        // pixels to either side of a measured line
constexpr double kSizeBeside = 12; // pixels from a side to the line that measures it
constexpr int kSizePadding = 4;
constexpr double kArrowLength = 10, kArrowHalfWidth = 4;
constexpr double kLinkStart = 4, kLitLinkStart = 7; // radius
constexpr double kGripRing = 9;                     // radius
constexpr double kStartDot = 5, kEndRing = 7;       // radius
constexpr int kWordGap = 8;
constexpr int kGlow = 32, kStrongGlow = 48, kCover = 215; // alpha
constexpr QMargins kBandFrame(2, 2, 2, 2);                // what it may cover beside the band's own pixels

QRect SizeBox(const Overlay &overlay, const Viewport &viewport) {
    if (overlay.size.isEmpty()) return {};
    const QFontMetrics metrics{QFont()};
    const QRectF box = viewport.FromSurface(overlay.sizeUnder);
    QRect text(0, 0, metrics.horizontalAdvance(overlay.size) + 3 * kSizePadding,
               metrics.height() + kSizePadding);
    text.moveCenter(QPoint(qRound(box.center().x()), 0));
    text.moveTop(qRound(box.bottom()) + 2 * kSizePadding);
    return text;
}

void PaintSize(QPainter &painter, const Overlay &overlay, const Viewport &viewport, const OverlayLook &look) {
    const QRect box = SizeBox(overlay, viewport);
    if (box.isEmpty()) return;
    painter.setFont(QFont());
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.accent);
    painter.drawRoundedRect(box, 3, 3);
    painter.setPen(look.onAccent);
    painter.drawText(box, Qt::AlignCenter, overlay.size);
}

// Paints the surface's colour over a link whose end is dragged, so that it stands back.
void PaintFaded(QPainter &painter, const Overlay &overlay, const Surface &surface, const Viewport &viewport) {
    if (overlay.faded.isEmpty()) return;
    const QTransform toPixels = viewport.ToPixels();
    const QPainterPath cover = toPixels.map(overlay.faded);
    QPainterPath around = toPixels.map(overlay.unfaded);
    around.addRect(cover.controlPointRect().united(around.controlPointRect()).adjusted(-1, -1, 1, 1));
    painter.save();
    painter.setClipPath(around, Qt::IntersectClip);
    painter.fillPath(cover, Faded(support::ToQColor(surface.BackColor()), kCover));
    painter.restore();
}

const QColor &ColourOf(const LinkEndMark &end, const OverlayLook &look) {
    return end.isSource ? look.accent : look.target;
}

void PaintNodesOfEnds(QPainter &painter, const Overlay &overlay, const QTransform &toPixels,
                      const OverlayLook &look) {
    for (const LinkEndMark &end : overlay.linkEnds) {
        if (end.outline.isEmpty()) continue;
        const QColor &colour = ColourOf(end, look);
        painter.setPen(QPen(colour, end.lit ? 3 : 2, end.lit ? Qt::SolidLine : Qt::DashLine));
        painter.setBrush(end.lit ? QBrush(Faded(colour, kStrongGlow)) : QBrush(Qt::NoBrush));
        painter.drawPath(toPixels.map(end.outline));
    }
}

// A dot where the link starts, a ring around the head where it ends.
void PaintJoints(QPainter &painter, const Overlay &overlay, const QTransform &toPixels,
                 const OverlayLook &look) {
    for (const LinkEndMark &end : overlay.linkEnds) {
        if (!end.joint) continue;
        const QColor &colour = ColourOf(end, look);
        painter.setPen(QPen(end.isSource ? look.onAccent : colour, end.isSource ? 1.5 : 2));
        painter.setBrush(end.isSource ? QBrush(colour) : QBrush(Qt::NoBrush));
        const double radius = end.isSource ? kStartDot : kEndRing;
        painter.drawEllipse(toPixels.map(*end.joint), radius, radius);
    }
}

QString WordOf(const LinkEndMark &end) {
    return end.isSource ? SurfaceView::tr("From") : SurfaceView::tr("To");
}

// Above the node, or below it: the start to the left and the end to the right, as a loop shows both.
QRect WordBox(const LinkEndMark &end, const QRectF &node) {
    const QFontMetrics metrics{QFont()};
    QRect box(0, 0, metrics.horizontalAdvance(WordOf(end)) + 3 * kSizePadding, metrics.height() + 2);
    box.moveBottom(qRound(node.top()) - kWordGap);
    if (box.top() < 0) box.moveTop(qRound(node.bottom()) + kWordGap); // there is no room above
    if (end.isSource)
        box.moveLeft(qRound(node.left()));
    else
        box.moveRight(qRound(node.right()));
    return box;
}

// The outline of a loop's one node stands with the later of its two ends.
QRectF NodeOf(const Overlay &overlay, const LinkEndMark &end) {
    for (const LinkEndMark *each = &end; each != overlay.linkEnds.data() + overlay.linkEnds.size(); ++each)
        if (!each->outline.isEmpty()) return each->outline.boundingRect();
    return {};
}

template <typename Use>
void ForEachWord(const Overlay &overlay, const QTransform &toPixels, Use use) {
    for (const LinkEndMark &end : overlay.linkEnds) {
        const QRectF node = end.named ? NodeOf(overlay, end) : QRectF();
        if (!node.isEmpty()) use(end, WordBox(end, toPixels.mapRect(node)));
    }
}

void PaintWords(QPainter &painter, const Overlay &overlay, const QTransform &toPixels,
                const OverlayLook &look) {
    painter.setFont(QFont());
    ForEachWord(overlay, toPixels, [&](const LinkEndMark &end, const QRect &box) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ColourOf(end, look));
        painter.drawRoundedRect(box, 3, 3);
        painter.setPen(look.onAccent);
        painter.drawText(box, Qt::AlignCenter, WordOf(end));
    });
}

void PaintBand(QPainter &painter, const Overlay &overlay, const Viewport &viewport, const OverlayLook &look) {
    if (overlay.band.isNull()) return;
    const QRectF band = look.Crisp(viewport.FromSurface(overlay.band));
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(band, Faded(look.accent, kGlow));
    painter.setRenderHint(QPainter::Antialiasing);
    Marks frame(look, look.accent);
    frame.AddFrame(band);
    frame.Paint(painter, {});
}

void PaintGhost(QPainter &painter, const Overlay &overlay, const QTransform &toPixels,
                const OverlayLook &look) {
    painter.setBrush(Faded(look.accent, kGlow));
    painter.setPen(look.Line(look.accent, 1.5));
    if (!overlay.ghost.isEmpty()) painter.drawPath(toPixels.map(overlay.ghost));
    painter.setBrush(Qt::NoBrush);
    if (!overlay.ghostLinks.isEmpty()) painter.drawPath(toPixels.map(overlay.ghostLinks));
}

// A head at `line`'s end.
QPolygonF ArrowHead(const QLineF &line) {
    const QLineF unit = line.unitVector();
    const QPointF along = unit.p2() - unit.p1();
    const QPointF across(-along.y(), along.x());
    const QPointF back = line.p2() - along * kArrowLength;
    return {{line.p2(), back + across * kArrowHalfWidth, back - across * kArrowHalfWidth}};
}

void PaintLine(QPainter &painter, const Overlay &overlay, const QTransform &toPixels,
               const OverlayLook &look) {
    if (overlay.line.elementCount() < 2) return;
    const QPainterPath line = toPixels.map(overlay.line);
    painter.setPen(QPen(look.accent, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(line);
    // The last element but one of a curve is the point from which it comes in.
    const QPointF before = line.elementAt(line.elementCount() - 2);
    const QLineF last(before, line.currentPosition());
    painter.setBrush(look.accent);
    if (last.length() > 1.5 * kArrowLength && overlay.arrow) painter.drawPolygon(ArrowHead(last));
}

// A lit one has an arrow in the direction in which a link would leave the node.
void PaintLinkStarts(QPainter &painter, const Overlay &overlay, const Viewport &viewport,
                     const OverlayLook &look) {
    static constexpr QPointF kOutwards[] = {{0, -1}, {1, 0}, {0, 1}, {-1, 0}}; // of the four sides
    for (int i = 0; i < int(overlay.linkStarts.size()); ++i) {
        const QPointF place = viewport.FromSurface(overlay.linkStarts[size_t(i)]);
        const bool lit = i == overlay.litLinkStart;
        painter.setPen(QPen(lit ? look.onAccent : look.accent, 1.5));
        painter.setBrush(lit ? look.accent : look.onAccent);
        const double radius = lit ? kLitLinkStart : kLinkStart;
        painter.drawEllipse(place, radius, radius);
        if (!lit) continue;
        const QPointF way = kOutwards[i % 4], across(-way.y(), way.x());
        const QPointF tip = place + way * 4;
        painter.drawLine(place - way * 4, tip);
        painter.drawPolyline(QPolygonF{{tip + (across - way) * 3, tip, tip - (across + way) * 3}});
    }
}

void PaintGrip(QPainter &painter, const QPointF &place, const OverlayLook &look) {
    painter.setPen(QPen(look.accent, 1.5));
    painter.setBrush(Faded(look.accent, kStrongGlow));
    painter.drawEllipse(place, kGripRing, kGripRing);
    painter.setPen(QPen(look.onAccent, 1));
    painter.setBrush(look.accent);
    painter.drawEllipse(place, kLinkStart, kLinkStart);
}

void PaintMeasured(QPainter &painter, const QLineF &line) {
    painter.drawLine(line);
    QLineF across = line.normalVector();
    across.setLength(kTick);
    const QPointF end = across.p2() - across.p1();
    painter.drawLine(line.p1() - end, line.p1() + end);
    painter.drawLine(line.p2() - end, line.p2() + end);
}

QLineF Beside(const QLineF &side) {
    return qAbs(side.dx()) > qAbs(side.dy()) ? side.translated(0, -kSizeBeside)
                                             : side.translated(-kSizeBeside, 0);
}

void PaintGuides(QPainter &painter, const Overlay &overlay, const QTransform &toPixels,
                 const OverlayLook &look) {
    const auto crisp = [&](const QLineF &line) {
        const QLineF pixels = toPixels.map(line);
        return QLineF(look.Crisp(pixels.p1()), look.Crisp(pixels.p2()));
    };
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(look.Line(look.guide, 1));
    for (const QLineF &guide : overlay.guides) painter.drawLine(crisp(guide));
    for (const QLineF &gap : overlay.gaps) PaintMeasured(painter, crisp(gap));
    for (const QLineF &size : overlay.sizes) PaintMeasured(painter, Beside(crisp(size)));
    painter.setRenderHint(QPainter::Antialiasing);
}

} // namespace

void PaintOverlay(QPainter &painter, const Overlay &overlay, const Surface &surface,
                  const Viewport &viewport) {
    if (overlay.IsEmpty()) return;
    const OverlayLook look = LookFor(surface, painter);
    const QTransform toPixels = viewport.ToPixels();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    PaintFaded(painter, overlay, surface, viewport);
    PaintNodesOfEnds(painter, overlay, toPixels, look);
    PaintBand(painter, overlay, viewport, look);
    PaintGhost(painter, overlay, toPixels, look);
    PaintLine(painter, overlay, toPixels, look);
    PaintJoints(painter, overlay, toPixels, look);
    PaintWords(painter, overlay, toPixels, look);
    if (overlay.grip) PaintGrip(painter, toPixels.map(*overlay.grip), look);
    PaintLinkStarts(painter, overlay, viewport, look);
    PaintGuides(painter, overlay, toPixels, look);
    PaintSize(painter, overlay, viewport, look);
    painter.restore();
}

OverlayPlace PlaceOf(const Overlay &overlay, const Viewport &viewport) {
    OverlayPlace place;
    if (!overlay.band.isNull())
        place.band = viewport.FromSurface(overlay.band).toAlignedRect().marginsAdded(kBandFrame);
    Overlay others = overlay;
    others.band = QRectF();
    if (others.IsEmpty()) return place;
    const QRectF area = viewport.FromSurface(others.Bounds());
    place.rest = area.toAlignedRect().adjusted(-kHandleReach, -kHandleReach, kHandleReach, kHandleReach) |
                 SizeBox(others, viewport);
    ForEachWord(others, viewport.ToPixels(),
                [&](const LinkEndMark &, const QRect &box) { place.rest |= box.adjusted(-1, -1, 1, 1); });
    return place;
}

QRegion ChangedArea(const OverlayPlace &before, const OverlayPlace &now) {
    QRegion changed = QRegion(before.rest) | now.rest;
    if (before.band == now.band) return changed;
    changed |= QRegion(before.band) ^ now.band;
    for (const QRect &band : {before.band, now.band})
        changed |= QRegion(band) - band.marginsRemoved(2 * kBandFrame);
    return changed;
}

} // namespace diagram
