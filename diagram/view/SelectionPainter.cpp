#include "diagram/view/SelectionPainter.h"

#include "diagram/hit/Grips.h"
#include "diagram/interaction/Press.h"
#include "diagram/model/Sights.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/LinkStyles.h"
#include "diagram/view/Marks.h"
#include "diagram/view/Viewport.h"

namespace diagram {

namespace {

// Pixels.
constexpr double kHandle = 7;
constexpr double kSmallHandle = 5;
constexpr double kShortestSegment = 40; // with a handle in its middle
constexpr size_t kManySelected = 500;   // beyond it frames stand for handles
constexpr double kRingGap = 6;
constexpr double kGlow = 5; // width of the glow along a selected link

// Everything that painting a selection looks at.
struct PaintedSelection {
    QPainter &painter;
    Scene &scene;
    const Viewport &viewport;
    QRegion reach;
    const OverlayLook &look;
    double side; // of a handle as the pointer meets it, twips
    Marks marks;
    SelectionForm form;
    const Sights &sights;
};

QColor GlowColour(const OverlayLook &look) { return Faded(look.accent, 70); }

// The area and what lies so near to it that its handles and its ring are seen there.
QRegion Reach(const QRegion &area) {
    QRegion reach;
    for (const QRect &rect : area)
        reach += rect.adjusted(-kHandleReach, -kHandleReach, kHandleReach, kHandleReach);
    return reach;
}

void PaintRing(const PaintedSelection &to, const QRectF &box, FocusRing ring) {
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

void AddNode(PaintedSelection &to, const Node &node, FocusRing ring) {
    const QRectF frame = to.viewport.FromSurface(HandleFrame(node.Bounds(), to.side));
    if (ring != FocusRing::None) PaintRing(to, frame, ring);
    to.marks.AddFrame(frame);
    for (const QPointF &place : HandlePlaces(node.Bounds(), to.side))
        to.marks.AddHandle(to.viewport.FromSurface(place), kHandle);
}

bool IsReached(const PaintedSelection &to, const QRectF &pixels) {
    const QRectF near = pixels.adjusted(-1, -1, 1, 1) & QRectF(to.reach.boundingRect());
    return !near.isEmpty() && to.reach.intersects(near.toAlignedRect());
}

void AddNodes(PaintedSelection &to, FocusRing ring) {
    for (const Node *node : to.scene.Model().SelectedNodes()) {
        const QRectF box = to.viewport.FromSurface(node->Bounds());
        if (to.sights.Hides(*node) || !IsReached(to, box)) continue;
        if (to.form.nodeHandles)
            AddNode(to, *node, node->Id() == to.form.focus ? ring : FocusRing::None);
        else
            to.marks.AddFrame(box);
    }
}

bool HasSegmentHandles(const Link &link) {
    const LinkStyleRow *row = FindLinkStyle(link.Style());
    return !row || row->form != LinkForm::Bezier;
}

// The label is left free, as the link's line leaves it free.
void AddGlow(PaintedSelection &to, const Link &link, const QRectF &label) {
    const QPainterPath path = to.viewport.ToPixels().map(to.scene.LinkPath(link));
    if (to.marks.AddGlow(path, kGlow, label)) return;
    to.painter.save();
    const QRectF spared = label & QRectF(to.reach.boundingRect());
    if (!spared.isEmpty()) to.painter.setClipRegion(to.reach - spared.toAlignedRect(), Qt::IntersectClip);
    to.painter.setRenderHint(QPainter::Antialiasing);
    to.painter.setBrush(Qt::NoBrush);
    to.painter.setPen(QPen(GlowColour(to.look), kGlow));
    if (path.elementCount() == 2) // a fraction of the time that a path takes
        to.painter.drawLine(path.elementAt(0), path.elementAt(1));
    else
        to.painter.drawPath(path);
    to.painter.restore();
}

void AddBends(PaintedSelection &to, const Link &link, const QRectF &label) {
    const std::vector<Point> &route = link.Route();
    const bool segments = HasSegmentHandles(link);
    for (size_t i = 0; i < route.size(); ++i) {
        const QPointF place = to.viewport.FromSurface(ToQPointF(route[i]));
        const QPointF before = i > 0 ? to.viewport.FromSurface(ToQPointF(route[i - 1])) : place;
        const QPointF half = (before + place) / 2;
        if (segments && QLineF(before, place).length() > kShortestSegment && !label.contains(half))
            to.marks.AddKnob(half, kSmallHandle);
        to.marks.AddHandle(place, kHandle);
    }
}

void AddLinks(PaintedSelection &to, ItemId loose) {
    for (const Link *link : to.scene.Model().SelectedLinks()) {
        if (to.sights.Hides(*link) || link->Id() == loose) continue;
        if (!IsReached(to, to.viewport.FromSurface(to.scene.Bounds(*link)))) continue;
        const QRectF label = to.viewport.FromSurface(to.scene.LabelBounds(*link));
        AddGlow(to, *link, label);
        if (to.form.linkHandles) AddBends(to, *link, label);
    }
}

} // namespace

SelectionForm FormOf(const Surface &surface) {
    const Node *focus = surface.SelectedNode();
    return {surface.SelectedNodes().size() <= kManySelected, surface.SelectedLinks().size() <= kManySelected,
            focus ? focus->Id() : kNoItem};
}

void PaintSelection(QPainter &painter, Scene &scene, const Viewport &viewport, const QRegion &area,
                    FocusRing ring, ItemId loose, const Sights &sights) {
    const PointerInput pointer{{}, {}, viewport.Pixel(), {}};
    const OverlayLook look = LookFor(scene.Model(), painter);
    const SelectionForm form = FormOf(scene.Model());
    PaintedSelection to{painter,
                        scene,
                        viewport,
                        Reach(area),
                        look,
                        OptionsFor(pointer).handleSize,
                        Marks(look, form.nodeHandles ? Faded(look.accent, 110) : look.accent),
                        form,
                        sights};
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    AddLinks(to, loose);
    AddNodes(to, ring);
    to.marks.Paint(painter, GlowColour(look));
    painter.restore();
}

} // namespace diagram
