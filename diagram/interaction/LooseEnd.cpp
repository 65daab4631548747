#include "diagram/interaction/LooseEnd.h"

#include "diagram/edit/History.h"
#include "diagram/geometry/Units.h"
#include "diagram/hit/HitTest.h"
#include "diagram/interaction/Overlay.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/interaction/SideStyle.h"
#include "diagram/model/AutomaticStyle.h"
#include "diagram/model/LinkDraft.h"
#include "diagram/model/Routing.h"
#include "diagram/scene/Bounds.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/Arrows.h"
#include "diagram/shapes/Shapes.h"

namespace diagram {

namespace {

constexpr double kBeside = 45; // twips that the cover reaches beyond the line to either side
constexpr double kBorder = 30; // twips that a node's border reaches beyond its outline

// An area that covers the link's line and its heads.
QPainterPath Cover(Scene &scene, const Link &link) {
    const QPainterPath line = scene.LinkPath(link);
    QPainterPathStroker stroker;
    stroker.setWidth(2 * kBeside + link.DrawWidth() * kTwipsPerPixel);
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

LinkDraft LooseEnd::DraftTo(const Surface &surface, const Node *target, const QPointF &at) const {
    const Node *fixed = Fixed(surface);
    const Link *link = surface.FindLink(link_);
    if (link) link->OwnBends(); // finds out whose they are
    LinkDraft draft = link ? LinkDraft(*link) : LinkDraft();
    const bool fromTarget = side_ == LinkSide::Source;
    draft.source = fromTarget ? target : fixed;
    draft.destination = fromTarget ? fixed : target;
    draft.loose = at;
    return draft;
}

LinkDraft LooseEnd::DraftTo(const Surface &surface, const QRectF &newNode) const {
    LinkDraft draft = DraftTo(surface, nullptr, newNode.center());
    const Node *fixed = Fixed(surface);
    draft.looseSize = newNode.size();
    if (fixed) draft.looseShape = fixed->Shape(), draft.looseOrientation = fixed->ShapeOrientation();
    return draft;
}

int LooseEnd::StyleOf(Scene &scene, const LinkDraft &draft) const {
    if (!IsNew()) return draft.data->style;
    LinkData data = *draft.data;
    LinkDraft drawn = draft;
    drawn.data = &data;
    const int style = scene.StyleToDraw();
    data.style = std::uint8_t(style == kAutomaticStyle ? BestOrthogonalStyle(scene.Model(), draft) : style);
    return pulledFrom_ < 0 ? data.style : StyleLeavingBy(scene, drawn, pulledFrom_);
}

int LooseEnd::StyleTo(Scene &scene, const QRectF &newNode) const {
    return StyleOf(scene, DraftTo(scene.Model(), newNode));
}

QPainterPath LooseEnd::LineOf(Scene &scene, const LinkDraft &draft) const {
    LinkData data = *draft.data;
    data.style = std::uint8_t(StyleOf(scene, draft));
    LinkDraft styled = draft;
    styled.data = &data;
    return RoutePath(data.style, scene.Model().Routes().RouteOf(styled));
}

QPainterPath LooseEnd::LineTo(Scene &scene, const Node *target, const QPointF &at) const {
    return Fixed(scene.Model()) ? LineOf(scene, DraftTo(scene.Model(), target, at)) : QPainterPath();
}

void LooseEnd::ShowNew(Scene &scene, const QRectF &newNode, Overlay &overlay) const {
    const Node *fixed = Fixed(scene.Model());
    if (!fixed) return;
    overlay.line = LineOf(scene, DraftTo(scene.Model(), newNode));
    overlay.arrow = true;
    overlay.linkEnds.push_back({{}, overlay.line.elementAt(0), true, false, false});
    overlay.ghost = Outline(fixed->Shape(), fixed->ShapeOrientation(), newNode);
}

// The fixed node's outline is shown only where words tell the two ends apart; else only where the line meets
// it.
void LooseEnd::ShowEnds(Scene &scene, const Node *target, bool named, Overlay &overlay) const {
    const QPainterPath &line = overlay.line;
    if (line.elementCount() < 2) return;
    const QPointF ends[] = {line.elementAt(0), line.currentPosition()};
    const bool targetFirst = side_ == LinkSide::Source;
    const Node *fixed = Fixed(scene.Model());
    if (fixed)
        overlay.linkEnds.push_back({named && fixed != target ? scene.NodeOutline(*fixed) : QPainterPath(),
                                    ends[targetFirst ? 1 : 0], !targetFirst, false, named});
    if (target)
        overlay.linkEnds.push_back(
            {scene.NodeOutline(*target), ends[targetFirst ? 0 : 1], targetFirst, true, named});
}

void LooseEnd::Show(Scene &scene, const QPainterPath &line, const Node *target, bool named,
                    Overlay &overlay) const {
    const Link *link = scene.Model().FindLink(link_);
    overlay.line = line;
    overlay.arrow = !link || link->ArrowDest() != 0;
    ShowEnds(scene, target, named, overlay);
    if (!link) return;
    overlay.loose = link_;
    overlay.faded = Cover(scene, *link);
    overlay.unfaded = Whole(scene, link->Source()) | Whole(scene, link->Destination());
}

void LooseEnd::Add(Scene &scene, Node &target) const {
    Surface &surface = scene.Model();
    Node *fixed = Fixed(surface);
    if (!fixed) return;
    const int style = StyleOf(scene, DraftTo(surface, &target, {}));
    Node &from = side_ == LinkSide::Source ? target : *fixed;
    Node &to = side_ == LinkSide::Source ? *fixed : target;
    ChangeSelection(surface, [&] {
        Link &link = from.Links().Add(to);
        link.SetStyle(style);
        surface.UnselectAll();
        link.SetSelected(true);
        surface.Events().AfterAddLink(surface, link);
    });
}

void LooseEnd::Join(Scene &scene, Node &target) const {
    Surface &surface = scene.Model();
    if (IsNew()) return Add(scene, target);
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
