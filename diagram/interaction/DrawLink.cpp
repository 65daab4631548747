#include "diagram/interaction/DrawLink.h"

#include "diagram/interaction/NewNode.h"
#include "diagram/interaction/OfferNode.h"
#include "diagram/interaction/ResizeNodes.h"
#include "diagram/scene/Scene.h"

#include <cmath>

namespace diagram {

namespace {

constexpr double kSomeWay = 24; // pixels from the press; nearer to it the source isn't a target

bool IsSomeWayOff(const PointerInput &press, const PointerInput &now) {
    const QPointF way = now.at - press.at;
    return std::hypot(way.x() / now.pixel.width(), way.y() / now.pixel.height()) >= kSomeWay;
}

} // namespace

DrawLink::DrawLink(Scene &scene, Stage &stage, Node &source, int side, const PointerInput &press)
    : scene_(scene), stage_(stage), source_(source.Id()), end_(source, side), press_(press) {}

Node *DrawLink::Target(const PointerInput &input) const {
    Node *target = LinkTargetAt(scene_, input.at);
    return target && target->Id() == source_ && !wentOff_ ? nullptr : target;
}

QRectF DrawLink::RoomAt(const PointerInput &input) const {
    const Node *source = scene_.Model().FindNode(source_);
    if (!source || !wentOff_) return {};
    const QSizeF size = source->Bounds().size().expandedTo(QSizeF(kSmallestSide, kSmallestSide));
    const QRectF place = PlaceAround(scene_.Model(), input.at, size, input);
    return IsFree(scene_, place) ? place : QRectF();
}

std::unique_ptr<Gesture> DrawLink::Move(const PointerInput &input) {
    wentOff_ = wentOff_ || IsSomeWayOff(press_, input);
    const Node *target = Target(input);
    target_ = target ? target->Id() : kNoItem;
    room_ = target ? QRectF() : RoomAt(input);
    line_ = end_.LineTo(scene_, target, input.at);
    return nullptr;
}

void DrawLink::Commit(const PointerInput &input) {
    Move(input);
    if (Node *target = scene_.Model().FindNode(target_))
        end_.Join(scene_, *target);
    else if (!room_.isEmpty())
        stage_.Ask(std::make_unique<OfferNode>(scene_, stage_, end_, room_));
    else if (wentOff_)
        stage_.Tell(Hint::LinkNeedsNode);
}

void DrawLink::Show(Overlay &overlay) const {
    if (room_.isEmpty())
        end_.Show(scene_, line_, scene_.Model().FindNode(target_), false, overlay);
    else
        end_.ShowNew(scene_, room_, overlay);
}

} // namespace diagram
