#include "diagram/interaction/MoveLinkEnd.h"

#include "diagram/edit/History.h"
#include "diagram/interaction/LinkTarget.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/Arrows.h"

#include <algorithm>

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

MoveLinkEnd::MoveLinkEnd(Scene &scene, Stage &stage, Link &link, bool atSource)
    : scene_(scene),
      stage_(stage),
      link_(link.Id()),
      at_(ToQPointF(atSource ? link.Way().front() : link.Way().back())),
      atSource_(atSource) {}

std::unique_ptr<Gesture> MoveLinkEnd::Move(const PointerInput &input) {
    const Node *target = LinkTargetAt(scene_, input.at);
    target_ = target ? target->Id() : kNoItem;
    at_ = input.at;
    return nullptr;
}

void MoveLinkEnd::Commit(const PointerInput &input) {
    Move(input);
    Surface &surface = scene_.Model();
    Link *link = surface.FindLink(link_);
    Node *target = surface.FindNode(target_);
    if (!link) return;
    if (!target) return stage_.Tell(Hint::LinkNeedsNode);
    if (target == &(atSource_ ? link->Source() : link->Destination())) return;
    const ActionGroup group(surface);
    if (atSource_)
        link->SetSource(*target);
    else
        link->SetDestination(*target);
    surface.Events().AfterStretch(surface);
}

void MoveLinkEnd::Show(Overlay &overlay) const {
    const Link *link = scene_.Model().FindLink(link_);
    if (!link) return;
    overlay.loose = link_;
    overlay.arrow = link->ArrowDest() != 0;
    overlay.faded = Cover(scene_, *link);
    overlay.unfaded = Whole(scene_, link->Source()) | Whole(scene_, link->Destination());
    const Node &fixed = atSource_ ? link->Destination() : link->Source();
    ShowLooseLink(scene_, fixed, scene_.Model().FindNode(target_), at_, overlay);
    if (atSource_ && target_ != fixed.Id()) std::reverse(overlay.line.begin(), overlay.line.end());
}

} // namespace diagram
