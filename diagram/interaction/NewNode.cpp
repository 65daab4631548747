#include "diagram/interaction/NewNode.h"

#include "diagram/interaction/GrowPage.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/interaction/Snap.h"
#include "diagram/model/AutomaticStyle.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"

#include <algorithm>

namespace diagram {

namespace {

void TakeLook(Node &node, const Node &from) {
    NodeData data = node.Data();
    const NodeData &model = from.Data();
    static_cast<NodeLook &>(data) = model;
    data.transparent = model.transparent;
    data.xTextMargin = model.xTextMargin;
    data.yTextMargin = model.yTextMargin;
    node.Owner().Overwrite(node, std::move(data));
}

Node &AddTo(Surface &surface, const NewNode &wanted) {
    const QRectF &box = wanted.place;
    Node &node =
        surface.Nodes().Add(float(box.left()), float(box.top()), float(box.width()), float(box.height()));
    if (wanted.shape) node.SetShape(*wanted.shape);
    return node;
}

void RaiseAdded(Surface &surface, Node &node, const Node *like) {
    if (!like) return surface.Events().AfterAddNode(surface, node);
    TakeLook(node, *like);
    surface.Events().AfterAddNodeLike(surface, node, *like);
}

void LinkTo(Surface &surface, ItemId added, const NewNode &wanted) {
    Node *start = surface.FindNode(wanted.linkedFrom);
    Node *end = surface.FindNode(added);
    if (!start || !end) return;
    Link &link = start->Links().Add(*end);
    link.SetStyle(StyleFor(link, wanted.linkStyle));
    surface.Events().AfterAddLink(surface, link);
}

} // namespace

Node *AddNewNode(Surface &surface, const NewNode &wanted) {
    ItemId added = kNoItem;
    ChangeSelection(surface, [&] {
        Node &node = AddTo(surface, wanted);
        added = node.Id();
        surface.UnselectAll();
        node.SetSelected(true);
        if (wanted.days) GrowPage(surface, *wanted.days, wanted.place);
        RaiseAdded(surface, node, surface.FindNode(wanted.like));
        LinkTo(surface, added, wanted);
    });
    return surface.FindNode(added);
}

bool IsFree(Scene &scene, const QRectF &box) {
    std::vector<Item *> items;
    scene.ItemsIn(box, items);
    return std::ranges::none_of(
        items, [&](const Item *item) { return item->AsNode() && item->AsNode()->Bounds().intersects(box); });
}

QRectF PlaceAround(const Surface &surface, const QPointF &middle, const QSizeF &size,
                   const PointerInput &input) {
    QPointF corner = middle - QPointF(size.width(), size.height()) / 2;
    if (Snaps(surface, input)) corner = SnapPoint(surface, corner);
    return {QPointF(qMax(0.0, corner.x()), qMax(0.0, corner.y())), size};
}

Node *PlaceNode(Surface &surface, const PointerInput &input, std::optional<int> shape) {
    NewNode node;
    node.place = PlaceAround(surface, input.at, kUsualSize, input);
    node.shape = shape;
    return AddNewNode(surface, node);
}

} // namespace diagram
