#include "diagram/interaction/DrawLink.h"

#include "diagram/interaction/LinkTarget.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/scene/Scene.h"

#include <cmath>

namespace diagram {

namespace {

constexpr double kSomeWay = 24; // pixels

bool IsSomeWayOff(const PointerInput &press, const PointerInput &now) {
    const QPointF way = now.at - press.at;
    return std::hypot(way.x() / now.pixel.width(), way.y() / now.pixel.height()) >= kSomeWay;
}

} // namespace

DrawLink::DrawLink(Scene &scene, Stage &stage, Node &source, const PointerInput &press)
    : scene_(scene), stage_(stage), source_(source.Id()), press_(press), at_(press.at) {}

Node *DrawLink::Target(const PointerInput &input) const {
    Node *target = LinkTargetAt(scene_, input.at);
    return target && target->Id() == source_ && !wentOff_ ? nullptr : target;
}

std::unique_ptr<Gesture> DrawLink::Move(const PointerInput &input) {
    wentOff_ = wentOff_ || IsSomeWayOff(press_, input);
    const Node *target = Target(input);
    target_ = target ? target->Id() : kNoItem;
    at_ = input.at;
    return nullptr;
}

void DrawLink::Commit(const PointerInput &input) {
    Move(input);
    Surface &surface = scene_.Model();
    Node *source = surface.FindNode(source_);
    Node *target = surface.FindNode(target_);
    if (!source) return;
    if (!target) {
        if (wentOff_) stage_.Tell(Hint::LinkNeedsNode);
        return;
    }
    ChangeSelection(surface, [&] {
        Link &link = source->Links().Add(*target);
        surface.UnselectAll();
        link.SetSelected(true);
        surface.Events().AfterAddLink(surface, link);
    });
}

void DrawLink::Show(Overlay &overlay) const {
    const Node *source = scene_.Model().FindNode(source_);
    overlay.arrow = true;
    if (source) ShowLooseLink(scene_, *source, scene_.Model().FindNode(target_), at_, overlay);
}

} // namespace diagram
