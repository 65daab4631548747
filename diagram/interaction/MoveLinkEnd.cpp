#include "diagram/interaction/MoveLinkEnd.h"

#include "diagram/scene/Scene.h"

namespace diagram {

MoveLinkEnd::MoveLinkEnd(Scene &scene, Stage &stage, Link &link, LinkSide side)
    : scene_(scene), stage_(stage), end_(link, side) {}

std::unique_ptr<Gesture> MoveLinkEnd::Move(const PointerInput &input) {
    const Node *target = LinkTargetAt(scene_, input.at);
    target_ = target ? target->Id() : kNoItem;
    line_ = end_.LineTo(scene_, target, input.at);
    return nullptr;
}

void MoveLinkEnd::Commit(const PointerInput &input) {
    Move(input);
    Surface &surface = scene_.Model();
    if (Node *target = surface.FindNode(target_))
        end_.Join(scene_, *target);
    else
        stage_.Tell(Hint::LinkNeedsNode);
}

void MoveLinkEnd::Show(Overlay &overlay) const {
    end_.Show(scene_, line_, scene_.Model().FindNode(target_), false, overlay);
}

} // namespace diagram
