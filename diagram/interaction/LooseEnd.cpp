#include "diagram/interaction/LooseEnd.h"

#include "diagram/edit/History.h"
#include "diagram/hit/HitTest.h"
#include "diagram/interaction/Overlay.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/model/LinkDraft.h"
#include "diagram/scene/Bounds.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/Arrows.h"

namespace diagram {

namespace {

constexpr double kBeside = 45; // twips that the cover reaches beyond the line to either side
constexpr double kBorder = 30; // and a border beyond its outline

// What the link's line and the heads at its ends lie in.
QPainterPath Cover(Scene &scene, const Link &link) {
    const QPainterPath line = scene.LinkPath(link);
    QPainterPathStroker stroker;
    stroker.setWidth(2 * kBeside + link.DrawWidth() * 15);
    QPainterPath cover = stroker.createStroke(line);
    cover.setFillRule(Qt::WindingFill);
    const auto addHead = [&](int head, int size, const QPointF &tip) {
        const double reach = ArrowScale(size, link.DrawWidth());
        if (head) cover.addEllipse(tip, reach, reach);
    };
    addHead(link.ArrowSource(), link.ArrowSizeSource(), line.pointAtPercent(0));
    addHead(link.ArrowMiddle(), link.ArrowSizeMiddle(), line.pointAtPercent(0.5));
    addHead(link.ArrowDest(), link.ArrowSizeDest(), line.pointAtPercent(1));
    return cover;
}

// The node with its border.
QPainterPath Whole(Scene &scene, const Node &node) {
    const QRectF box = node.Bounds();
    if (box.isEmpty()) return {};
    QTransform grow;
    grow.translate(box.center().x(), box.center().y());
    grow.scale(1 + 2 * kBorder / box.width(), 1 + 2 * kBorder / box.height());
    grow.translate(-box.center().x(), -box.center().y());
    return grow.map(scene.NodeOutline(node));
}

} // namespace

Node *LinkTargetAt(Scene &scene, const QPointF &at) { return SelectableNodeAt(scene, at); }

LooseEnd::LooseEnd(Link &link, LinkSide side)
    : link_(link.Id()),
      fixed_((side == LinkSide::Source ? link.Destination() : link.Source()).Id()),
      side_(side) {}

Node *LooseEnd::Joined(const Surface &surface) const {
    const Link *link = surface.FindLink(link_);
    if (!link) return nullptr;
    return side_ == LinkSide::Source ? &link->Source() : &link->Destination();
}

QPainterPath LooseEnd::LineTo(Scene &scene, const Node *target, const QPointF &at) const {
    Surface &surface = scene.Model();
    const Node *fixed = Fixed(surface);
    if (!fixed) return {};
    const Link *link = surface.FindLink(link_);
    if (link) link->OwnBends(); // finds out whose they are
    LinkDraft draft = link ? LinkDraft(*link) : LinkDraft();
    const bool fromTarget = side_ == LinkSide::Source;
    draft.source = fromTarget ? target : fixed;
    draft.destination = fromTarget ? fixed : target;
    draft.loose = at;
    return WayPath(draft.data->style, surface.WayOf(draft));
}

void LooseEnd::Show(Scene &scene, const QPainterPath &line, const Node *target, Overlay &overlay) const {
    const Link *link = scene.Model().FindLink(link_);
    overlay.line = line;
    overlay.arrow = !link || link->ArrowDest() != 0;
    if (target) overlay.target = scene.NodeOutline(*target);
    if (!link) return;
    overlay.loose = link_;
    overlay.faded = Cover(scene, *link);
    overlay.unfaded = Whole(scene, link->Source()) | Whole(scene, link->Destination());
}

void LooseEnd::Add(Surface &surface, Node &target) const {
    Node *fixed = Fixed(surface);
    if (!fixed) return;
    Node &from = side_ == LinkSide::Source ? target : *fixed;
    Node &to = side_ == LinkSide::Source ? *fixed : target;
    ChangeSelection(surface, [&] {
        Link &link = from.Links().Add(to);
        surface.UnselectAll();
        link.SetSelected(true);
        surface.Events().AfterAddLink(surface, link);
    });
}

void LooseEnd::Join(Surface &surface, Node &target) const {
    if (IsNew()) return Add(surface, target);
    Link *link = surface.FindLink(link_);
    if (!link || Joined(surface) == &target) return;
    const ActionGroup group(surface);
    if (side_ == LinkSide::Source)
        link->SetSource(target);
    else
        link->SetDestination(target);
    surface.Events().AfterStretch(surface);
}

} // namespace diagram
