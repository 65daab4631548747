#include "diagram/interaction/MoveLinkEnd.h"

#include "diagram/edit/History.h"
#include "diagram/interaction/LinkTarget.h"
#include "diagram/scene/Scene.h"

namespace diagram {

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
    overlay.faded = scene_.LinkPath(*link);
    const Node &fixed = atSource_ ? link->Destination() : link->Source();
    ShowLooseLink(scene_, fixed, scene_.Model().FindNode(target_), at_, overlay);
}

} // namespace diagram
