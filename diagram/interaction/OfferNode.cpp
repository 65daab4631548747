#include "diagram/interaction/OfferNode.h"

#include "diagram/interaction/NewNode.h"
#include "diagram/scene/Scene.h"

namespace diagram {

OfferNode::OfferNode(Scene &scene, Stage &stage, const LooseEnd &end, const QRectF &place)
    : scene_(scene), stage_(stage), end_(end), place_(place) {}

void OfferNode::Commit(const PointerInput &) {
    Surface &surface = scene_.Model();
    const Node *from = end_.Fixed(surface);
    if (!from) return;
    NewNode node;
    node.place = place_;
    node.like = node.linkedFrom = from->Id();
    node.linkStyle = end_.StyleTo(scene_, place_);
    if (AddNewNode(surface, node)) stage_.EditText();
}

void OfferNode::Show(Overlay &overlay) const { end_.ShowNew(scene_, place_, overlay); }

} // namespace diagram
