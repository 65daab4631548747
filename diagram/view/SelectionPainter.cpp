#include "diagram/view/SelectionPainter.h"

#include "diagram/hit/Grips.h"
#include "diagram/interaction/Press.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/LinkStyles.h"
#include "diagram/view/OverlayLook.h"
#include "diagram/view/Viewport.h"

namespace diagram {

namespace {

constexpr double kHandle = 7;
constexpr double kSmallHandle = 5;
constexpr double kShortestSegment = 40; // with a handle in its middle
constexpr size_t kManySelected = 500;   // beyond it frames stand for handles
constexpr double kRingGap = 6;
constexpr double kGlow = 5; // width of the glow along a selected link

// Everything that painting a selection looks at.
struct Selection {
    QPainter &painter;
    Scene &scene;
    const Viewport &viewport;
    QRectF reach;
    OverlayLook look;
    double side; // of a handle as it is met, twips
};

void PaintHandle(const Selection &to, const QPointF &place, double size) {
    const QRectF box = to.look.Square(place, size);
    const double line = to.look.Line(to.look.accent, 1).widthF();
    to.painter.fillRect(box, to.look.accent);
    to.painter.fillRect(box.adjusted(line, line, -line, -line), Qt::white);
}

void PaintRound(const Selection &to, const QPointF &place, double size) {
    to.painter.setRenderHint(QPainter::Antialiasing);
    to.painter.setPen(to.look.Line(to.look.accent, 1));
    to.painter.setBrush(Qt::white);
    to.painter.drawEllipse(to.look.Square(place, size));
    to.painter.setRenderHint(QPainter::Antialiasing, false);
}

void PaintFrame(const Selection &to, const QRectF &box, int alpha) {
    to.painter.setPen(to.look.Line(Faded(to.look.accent, alpha), 1));
    to.painter.setBrush(Qt::NoBrush);
    to.painter.drawRect(to.look.Crisp(box));
}

void PaintRing(const Selection &to, const QRectF &box, FocusRing ring) {
    const QRectF around = to.look.Crisp(box.adjusted(-kRingGap, -kRingGap, kRingGap, kRingGap));
    to.painter.setBrush(Qt::NoBrush);
    if (ring == FocusRing::Faint) {
        to.painter.setPen(QPen(Faded(to.look.accent, 150), 1, Qt::DotLine));
        to.painter.drawRect(around);
        return;
    }
    to.painter.setRenderHint(QPainter::Antialiasing);
    to.painter.setPen(to.look.Line(to.look.accent, 2));
    to.painter.drawRoundedRect(around, 4, 4);
    to.painter.setRenderHint(QPainter::Antialiasing, false);
}

void PaintNode(const Selection &to, const Node &node, FocusRing ring) {
    const QRectF frame = to.viewport.FromSurface(HandleFrame(node.Bounds(), to.side));
    if (ring != FocusRing::None) PaintRing(to, frame, ring);
    PaintFrame(to, frame, 110);
    for (const QPointF &place : HandlePlaces(node.Bounds(), to.side))
        PaintHandle(to, to.viewport.FromSurface(place), kHandle);
}

void PaintNodes(const Selection &to, FocusRing ring) {
    const std::vector<Node *> &nodes = to.scene.Model().SelectedNodes();
    const Node *focus = to.scene.Model().SelectedNode();
    for (const Node *node : nodes) {
        const QRectF box = to.viewport.FromSurface(node->Bounds());
        if (node->Hidden() || !to.reach.intersects(box.adjusted(-1, -1, 1, 1))) continue;
        if (nodes.size() > kManySelected)
            PaintFrame(to, box, 255);
        else
            PaintNode(to, *node, node == focus ? ring : FocusRing::None);
    }
}

bool HasSegmentHandles(const Link &link) {
    const LinkStyleRow *row = FindLinkStyle(link.Style());
    return !row || row->form != LinkForm::Bezier;
}

// The label is left free, as it is of the line itself.
void PaintGlow(const Selection &to, const Link &link, const QRectF &label) {
    to.painter.save();
    if (!label.isEmpty())
        to.painter.setClipRegion(QRegion(to.reach.toAlignedRect()) - (label & to.reach).toAlignedRect(),
                                 Qt::IntersectClip);
    to.painter.setRenderHint(QPainter::Antialiasing);
    to.painter.setBrush(Qt::NoBrush);
    to.painter.setPen(QPen(Faded(to.look.accent, 70), kGlow));
    to.painter.drawPath(to.viewport.ToPixels().map(to.scene.LinkPath(link)));
    to.painter.restore();
}

void PaintBends(const Selection &to, const Link &link, const QRectF &label) {
    const std::vector<Point> &way = link.Way();
    const bool segments = HasSegmentHandles(link);
    for (size_t i = 0; i < way.size(); ++i) {
        const QPointF place = to.viewport.FromSurface(ToQPointF(way[i]));
        const QPointF before = i > 0 ? to.viewport.FromSurface(ToQPointF(way[i - 1])) : place;
        const QPointF half = (before + place) / 2;
        if (segments && QLineF(before, place).length() > kShortestSegment && !label.contains(half))
            PaintRound(to, half, kSmallHandle);
        PaintHandle(to, place, kHandle);
    }
}

void PaintLinks(const Selection &to, ItemId loose) {
    const std::vector<Link *> &links = to.scene.Model().SelectedLinks();
    for (const Link *link : links) {
        if (link->Hidden() || link->Id() == loose) continue;
        if (!to.reach.intersects(to.viewport.FromSurface(to.scene.Bounds(*link)))) continue;
        const QRectF label = to.viewport.FromSurface(to.scene.LabelBounds(*link));
        PaintGlow(to, *link, label);
        if (links.size() <= kManySelected) PaintBends(to, *link, label);
    }
}

} // namespace

void PaintSelection(QPainter &painter, Scene &scene, const Viewport &viewport, const QRectF &area,
                    FocusRing ring, ItemId loose) {
    const PointerInput pointer{{}, {}, viewport.Pixel(), {}};
    const Selection to{painter,
                       scene,
                       viewport,
                       area.adjusted(-kHandleReach, -kHandleReach, kHandleReach, kHandleReach),
                       LookFor(scene.Model(), painter),
                       OptionsFor(pointer).handleSize};
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    PaintLinks(to, loose);
    PaintNodes(to, ring);
    painter.restore();
}

} // namespace diagram
