#include "diagram/interaction/DrawLink.h"

#include "diagram/interaction/LinkTarget.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/scene/Scene.h"

namespace diagram {

DrawLink::DrawLink(Scene &scene, Stage &stage, Node &source)
    : scene_(scene), stage_(stage), source_(source.Id()), at_(source.Bounds().center()) {}

Node *DrawLink::Target(const PointerInput &input) const {
    Node *target = LinkTargetAt(scene_, input.at);
    return target && target->Id() == source_ && !leftSource_ ? nullptr : target;
}

std::unique_ptr<Gesture> DrawLink::Move(const PointerInput &input) {
    const Node *source = scene_.Model().FindNode(source_);
    leftSource_ = leftSource_ || !source || !source->Bounds().contains(input.at);
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
        if (leftSource_) stage_.Tell(Hint::LinkNeedsNode);
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
    if (source) ShowLooseLink(scene_, *source, scene_.Model().FindNode(target_), at_, overlay);
}

} // namespace diagram
