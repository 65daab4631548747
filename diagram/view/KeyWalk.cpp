#include "diagram/view/KeyWalk.h"

#include "diagram/interaction/KeyInput.h"
#include "diagram/interaction/Neighbours.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"

namespace diagram {

KeyWalk::KeyWalk(Scene &scene, std::function<void(const QRectF &)> show)
    : scene_(scene), surface_(scene.Model()), show_(std::move(show)) {}

Node *KeyWalk::Anchor() const {
    const Link *link = surface_.SelectedLink();
    if (Node *node = surface_.SelectedNode(); node || !link) return node;
    return link->Destination().Id() == around_ ? &link->Destination() : &link->Source();
}

bool KeyWalk::Towards(const QPointF &direction, const KeyInput &input) {
    const Node *from = surface_.SelectedNode();
    const Link *link = surface_.SelectedLink();
    if (!from && !link) return false;
    direction_ = direction;
    if (!from) return GoTo(&EndTowards(*link, direction));
    Node *to = NodeByKey(surface_, from, input);
    return input.Shift() ? ReachTo(to) : GoTo(to);
}

bool KeyWalk::AlongLinks(int step) {
    const Node *node = Anchor();
    if (!node) return false;
    around_ = node->Id();
    return GoTo(NextLinkOf(*node, surface_.SelectedLink(), step));
}

bool KeyWalk::ByTab(const KeyInput &input) { return GoTo(NodeByKey(surface_, Anchor(), input)); }

bool KeyWalk::GoTo(Item *item) {
    if (!item) return false;
    SelectOnly(*item);
    show_(scene_.Bounds(*item));
    return true;
}

bool KeyWalk::ReachTo(Node *node) {
    Node *from = surface_.SelectedNode();
    if (!node || !from) return false;
    if (node->Selected())
        ToggleSelected(*from);
    else
        SelectToo(*node);
    show_(node->Bounds());
    return true;
}

} // namespace diagram
