#include "diagram/interaction/AddLinked.h"

#include "diagram/interaction/ResizeNodes.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"

#include <algorithm>

namespace diagram {

namespace {

constexpr double kGap = 750;     // twips between the two nodes
constexpr int kMostPlaces = 200; // that are looked at
constexpr QSizeF kNewSize{1500, 900};

bool IsOnSurface(const QRectF &box) { return box.left() >= 0 && box.top() >= 0; }

bool IsFree(Scene &scene, const QRectF &box) {
    std::vector<Item *> items;
    scene.ItemsIn(box, items);
    return std::ranges::none_of(
        items, [&](const Item *item) { return item->AsNode() && item->AsNode()->Bounds().intersects(box); });
}

QRectF PlaceBeside(Scene &scene, const QRectF &box, QPointF direction) {
    const QPointF step(box.width() + kGap, box.height() + kGap);
    const auto away = [&](const QPointF &along) {
        return box.translated(along.x() * step.x(), along.y() * step.y());
    };
    if (!IsOnSurface(away(direction))) direction = -direction;
    const QPointF aside(qAbs(direction.y()), qAbs(direction.x()));
    for (int i = 0; i < kMostPlaces; ++i) {
        const int rows = i % 2 ? (i + 1) / 2 : -i / 2; // 0, 1, -1, 2, -2 ...
        const QRectF place = away(direction + aside * rows);
        if (IsOnSurface(place) && IsFree(scene, place)) return place;
    }
    return away(direction);
}

// `source` is kNoItem for a node without a link.
Node *Add(Surface &surface, const QRectF &place, ItemId source) {
    ItemId added = kNoItem;
    ChangeSelection(surface, [&] {
        Node &node = surface.Nodes().Add(float(place.left()), float(place.top()), float(place.width()),
                                         float(place.height()));
        added = node.Id();
        surface.UnselectAll();
        node.SetSelected(true);
        surface.Events().AfterAddNode(surface, node);
        Node *start = surface.FindNode(source);
        Node *end = surface.FindNode(added);
        if (start && end) surface.Events().AfterAddLink(surface, start->Links().Add(*end));
    });
    return surface.FindNode(added);
}

} // namespace

Node *AddLinkedNode(Scene &scene, Node &from, const QPointF &direction) {
    QRectF box = from.Bounds();
    box.setSize(box.size().expandedTo(QSizeF(kSmallestSide, kSmallestSide)));
    return Add(scene.Model(), PlaceBeside(scene, box, direction), from.Id());
}

Node *AddNodeInMiddle(Scene &scene, const QRectF &seen) {
    QRectF box(QPointF(), kNewSize);
    box.moveCenter(seen.center());
    box.moveTopLeft({qMax(0.0, box.left()), qMax(0.0, box.top())});
    const QRectF place = IsFree(scene, box) ? box : PlaceBeside(scene, box, {1, 0});
    return Add(scene.Model(), place, kNoItem);
}

} // namespace diagram
