#include "diagram/interaction/DrawLink.h"

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
    : scene_(scene),
      stage_(stage),
      source_(source.Id()),
      end_(source, LinkSide::Destination),
      press_(press) {}

Node *DrawLink::Target(const PointerInput &input) const {
    Node *target = LinkTargetAt(scene_, input.at);
    return target && target->Id() == source_ && !wentOff_ ? nullptr : target;
}

std::unique_ptr<Gesture> DrawLink::Move(const PointerInput &input) {
    wentOff_ = wentOff_ || IsSomeWayOff(press_, input);
    const Node *target = Target(input);
    target_ = target ? target->Id() : kNoItem;
    line_ = end_.LineTo(scene_, target, input.at);
    return nullptr;
}

void DrawLink::Commit(const PointerInput &input) {
    Move(input);
    Surface &surface = scene_.Model();
    if (Node *target = surface.FindNode(target_))
        end_.Join(surface, *target);
    else if (wentOff_)
        stage_.Tell(Hint::LinkNeedsNode);
}

void DrawLink::Show(Overlay &overlay) const {
    end_.Show(scene_, line_, scene_.Model().FindNode(target_), overlay);
}

} // namespace diagram
