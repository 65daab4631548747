#include "diagram/interaction/LinkByKeys.h"

#include "diagram/interaction/Neighbours.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/scene/Scene.h"

namespace diagram {

namespace {

Node *FirstCandidate(Node &from, const QPointF &direction) {
    const std::vector<Node *> &selected = from.Owner().SelectedNodes();
    if (selected.size() == 2) return selected[0] == &from ? selected[1] : selected[0];
    if (Node *ahead = NeighbourTowards(from, direction)) return ahead;
    Node *nearest = NearestNode(from);
    return nearest ? nearest : &from;
}

} // namespace

LinkByKeys::LinkByKeys(Scene &scene, Stage &stage, const LooseEnd &end, Node &candidate)
    : scene_(scene), stage_(stage), end_(end), scroll_(stage.ScrollOffset()) {
    GoTo(&candidate, {});
    stage_.EnsureVisible(candidate.Bounds());
}

void LinkByKeys::GoTo(const Node *candidate, const QPointF &at) {
    candidate_ = candidate ? candidate->Id() : kNoItem;
    line_ = end_.LineTo(scene_, candidate, at);
}

std::unique_ptr<Gesture> LinkByKeys::Move(const PointerInput &input) {
    GoTo(LinkTargetAt(scene_, input.at), input.at);
    return nullptr;
}

void LinkByKeys::Key(const KeyInput &input) {
    const Surface &surface = scene_.Model();
    const Node *from = surface.FindNode(candidate_);
    const Node *to = NodeByKey(surface, from, input);
    if (!to && input.Tab()) to = NextInReadingOrder(surface, nullptr, input.Tab());
    if (!to) return;
    GoTo(to, {});
    stage_.EnsureVisible(to->Bounds());
}

void LinkByKeys::Commit(const PointerInput &) {
    Surface &surface = scene_.Model();
    Node *candidate = surface.FindNode(candidate_);
    if (candidate && IsSelectable(*candidate))
        end_.Join(scene_, *candidate);
    else
        stage_.Tell(Hint::LinkNeedsNode);
}

void LinkByKeys::Show(Overlay &overlay) const {
    end_.Show(scene_, line_, scene_.Model().FindNode(candidate_), true, overlay);
}

Hint LinkByKeys::WhatNow() const { return end_.IsNew() ? Hint::KeysChooseNode : Hint::KeysChooseEnd; }

Attention LinkByKeys::LooksAt() const {
    const Node *fixed = end_.Fixed(scene_.Model());
    return {candidate_, fixed ? fixed->Id() : kNoItem, end_.Side() == LinkSide::Source};
}

std::unique_ptr<Gesture> BeginLinkByKeys(Scene &scene, Stage &stage, LinkSide side,
                                         const QPointF &direction) {
    const Surface &surface = scene.Model();
    const std::vector<Node *> &nodes = surface.SelectedNodes();
    if (!nodes.empty()) {
        Node &from = nodes.size() == 2 ? *nodes.front() : *surface.SelectedNode();
        return std::make_unique<LinkByKeys>(scene, stage, LooseEnd(from, side),
                                            *FirstCandidate(from, direction));
    }
    Link *link = surface.SelectedLink();
    if (!link) return nullptr;
    const LooseEnd end(*link, side);
    return std::make_unique<LinkByKeys>(scene, stage, end, *end.Joined(surface));
}

} // namespace diagram
