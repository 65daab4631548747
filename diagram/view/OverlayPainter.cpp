#include "diagram/view/OverlayPainter.h"

#include "diagram/interaction/Overlay.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/LinkStyles.h"
#include "diagram/view/Viewport.h"

#include <array>
#include <cmath>
#include <QFontMetrics>
#include <QPainter>

namespace diagram {

namespace {

// The same in a light and a dark desktop: they stand on the surface's own colours.
const QColor kAccent(0, 103, 192);
const QColor kTarget(16, 137, 62);
const QColor kGuide(207, 34, 126);
constexpr double kGapEnd = 4; // pixels to either side
constexpr double kHandle = 7;
constexpr double kSmallHandle = 5;
constexpr double kShortestSegment = 40; // with a handle in its middle
constexpr size_t kManySelected = 500;   // beyond it frames stand for handles
constexpr int kSizePadding = 4;

QRectF Square(const QPointF &middle, double side) {
    return {std::round(middle.x()) - side / 2, std::round(middle.y()) - side / 2, side, side};
}

void PaintHandles(QPainter &painter, const QRectF &box) {
    const QPointF middle = box.center();
    const std::array<QPointF, 8> places{
        box.topLeft(),     {middle.x(), box.top()},    box.topRight(),   {box.right(), middle.y()},
        box.bottomRight(), {middle.x(), box.bottom()}, box.bottomLeft(), {box.left(), middle.y()}};
    for (const QPointF &place : places) painter.drawRect(Square(place, kHandle));
}

void PaintFrame(QPainter &painter, const QRectF &box) {
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box);
    painter.setBrush(Qt::white);
}

void PaintFocusRing(QPainter &painter, const QRectF &box) {
    painter.save();
    painter.setPen(QPen(kAccent, 1, Qt::DotLine));
    PaintFrame(painter, box.adjusted(-6, -6, 6, 6));
    painter.restore();
}

void PaintNodes(QPainter &painter, const Surface &surface, const Viewport &viewport, const QRectF &area,
                bool focused) {
    const std::vector<Node *> &nodes = surface.SelectedNodes();
    const QRectF reach = area.adjusted(-kHandleReach, -kHandleReach, kHandleReach, kHandleReach);
    const Node *focus = focused ? surface.SelectedNode() : nullptr;
    for (const Node *node : nodes) {
        const QRectF box = viewport.FromSurface(node->Bounds());
        if (node->Hidden() || !reach.intersects(box.adjusted(-1, -1, 1, 1))) continue;
        if (nodes.size() > kManySelected) {
            PaintFrame(painter, box);
            continue;
        }
        if (node == focus) PaintFocusRing(painter, box);
        PaintHandles(painter, box);
    }
}

bool HasSegmentHandles(const Link &link) {
    const LinkStyleRow *row = FindLinkStyle(link.Style());
    return !row || row->form != LinkForm::Bezier;
}

void PaintBends(QPainter &painter, const Link &link, const Viewport &viewport) {
    const std::vector<Point> &way = link.Way();
    const bool segments = HasSegmentHandles(link);
    for (size_t i = 0; i < way.size(); ++i) {
        const QPointF place = viewport.FromSurface(ToQPointF(way[i]));
        const QPointF before = i > 0 ? viewport.FromSurface(ToQPointF(way[i - 1])) : place;
        if (segments && QLineF(before, place).length() > kShortestSegment)
            painter.drawEllipse(Square((before + place) / 2, kSmallHandle));
        painter.drawRect(Square(place, kHandle));
    }
}

void PaintLinks(QPainter &painter, Scene &scene, const Viewport &viewport, const QRectF &area) {
    const QRectF reach = area.adjusted(-kHandleReach, -kHandleReach, kHandleReach, kHandleReach);
    for (const Link *link : scene.Model().SelectedLinks()) {
        if (link->Hidden() || !reach.intersects(viewport.FromSurface(scene.Bounds(*link)))) continue;
        PaintBends(painter, *link, viewport);
    }
}

QTransform ToPixels(const Viewport &viewport) {
    const QPoint scroll = viewport.Scroll();
    return {viewport.xScale(), 0, 0, viewport.yScale(), double(-scroll.x()), double(-scroll.y())};
}

QRect SizeBox(const Overlay &overlay, const Viewport &viewport) {
    if (overlay.size.isEmpty()) return {};
    const QFontMetrics metrics{QFont()};
    const QRectF box = viewport.FromSurface(overlay.sizeUnder);
    QRect text(0, 0, metrics.horizontalAdvance(overlay.size) + 2 * kSizePadding,
               metrics.height() + kSizePadding);
    text.moveCenter(QPoint(qRound(box.center().x()), 0));
    text.moveTop(qRound(box.bottom()) + kHandleReach);
    return text;
}

void PaintSize(QPainter &painter, const Overlay &overlay, const Viewport &viewport) {
    const QRect box = SizeBox(overlay, viewport);
    if (box.isEmpty()) return;
    painter.setFont(QFont());
    painter.setPen(Qt::NoPen);
    painter.setBrush(kAccent);
    painter.drawRoundedRect(box, 3, 3);
    painter.setPen(Qt::white);
    painter.drawText(box, Qt::AlignCenter, overlay.size);
}

void PaintTarget(QPainter &painter, const Overlay &overlay, const QTransform &toPixels) {
    if (overlay.target.isEmpty()) return;
    QColor glow = kTarget;
    glow.setAlpha(48);
    painter.setPen(QPen(kTarget, 3));
    painter.setBrush(glow);
    painter.drawPath(toPixels.map(overlay.target));
}

// Faint until the pointer is on it, as the text of the node may stand there.
void PaintLinkStart(QPainter &painter, const QPointF &place, bool lit) {
    QColor ring = kAccent;
    ring.setAlpha(lit ? 255 : 110);
    painter.setPen(QPen(ring, 1.5));
    painter.setBrush(lit ? QBrush(Qt::white) : QBrush(Qt::NoBrush));
    painter.drawEllipse(place, 5, 5);
    if (!lit) return;
    painter.drawLine(place - QPointF(2.5, 0), place + QPointF(2.5, 0));
    painter.drawLine(place - QPointF(0, 2.5), place + QPointF(0, 2.5));
}

void PaintGap(QPainter &painter, const QLineF &gap) {
    painter.drawLine(gap);
    QLineF across = gap.normalVector();
    across.setLength(kGapEnd);
    const QPointF end = across.p2() - across.p1();
    painter.drawLine(gap.p1() - end, gap.p1() + end);
    painter.drawLine(gap.p2() - end, gap.p2() + end);
}

void PaintGuides(QPainter &painter, const Overlay &overlay, const QTransform &toPixels) {
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(kGuide, 1));
    for (const QLineF &guide : overlay.guides) painter.drawLine(toPixels.map(guide));
    for (const QLineF &gap : overlay.gaps) PaintGap(painter, toPixels.map(gap));
    painter.setRenderHint(QPainter::Antialiasing);
}

} // namespace

void PaintSelection(QPainter &painter, Scene &scene, const Viewport &viewport, const QRectF &area,
                    bool focused) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(kAccent, 1));
    painter.setBrush(Qt::white);
    PaintLinks(painter, scene, viewport, area);
    PaintNodes(painter, scene.Model(), viewport, area, focused);
    painter.restore();
}

void PaintOverlay(QPainter &painter, const Overlay &overlay, const Viewport &viewport) {
    if (overlay.IsEmpty()) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QTransform toPixels = ToPixels(viewport);
    PaintTarget(painter, overlay, toPixels);
    QColor glow = kAccent;
    glow.setAlpha(32);
    painter.setPen(QPen(kAccent, 1.5));
    painter.setBrush(glow);
    if (!overlay.band.isNull()) painter.drawRect(viewport.FromSurface(overlay.band));
    if (!overlay.ghost.isEmpty()) painter.drawPath(toPixels.map(overlay.ghost));
    if (overlay.line) painter.drawLine(toPixels.map(*overlay.line));
    if (overlay.linkStart)
        PaintLinkStart(painter, viewport.FromSurface(*overlay.linkStart), overlay.onLinkStart);
    PaintGuides(painter, overlay, toPixels);
    PaintSize(painter, overlay, viewport);
    painter.restore();
}

QRect OverlayArea(const Overlay &overlay, const Viewport &viewport) {
    if (overlay.IsEmpty()) return {};
    const QRectF area = viewport.FromSurface(overlay.Bounds());
    return area.toAlignedRect().adjusted(-kHandleReach, -kHandleReach, kHandleReach, kHandleReach) |
           SizeBox(overlay, viewport);
}

} // namespace diagram
