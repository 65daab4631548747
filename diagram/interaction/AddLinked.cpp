#include "diagram/interaction/AddLinked.h"

#include "diagram/edit/History.h"
#include "diagram/interaction/Family.h"
#include "diagram/interaction/MakeRoom.h"
#include "diagram/interaction/NewNode.h"
#include "diagram/interaction/ResizeNodes.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"

#include <algorithm>

namespace diagram {

namespace {

constexpr int kMostPlaces = 200; // looked at for a free one

bool IsOnSurface(const QRectF &box) { return box.left() >= 0 && box.top() >= 0; }

// The axis along which the nodes of one generation follow each other, a unit vector.
QPointF Behind(const QPointF &growth) { return {qAbs(growth.y()), qAbs(growth.x())}; }

QRectF Away(const QRectF &box, const QPointF &by) {
    return box.translated(by.x() * (box.width() + kKinGap), by.y() * (box.height() + kKinGap));
}

// The nearest free place to `first` along the line in the direction, on either side; `first` where there is
// none.
QRectF NearestFree(Scene &scene, const QRectF &first, const QPointF &along) {
    for (int i = 0; i < kMostPlaces; ++i) {
        const int rows = i % 2 ? (i + 1) / 2 : -i / 2; // 0, 1, -1, 2, -2 ...
        const QRectF place = Away(first, along * rows);
        if (IsOnSurface(place) && IsFree(scene, place)) return place;
    }
    return first;
}

// Where the new node goes, and the link to it, if any.
struct Wanted {
    QRectF place;
    QPointF behind;         // the axis along which siblings follow each other
    QPointF after;          // the middle of the node behind which it comes
    Node *parent = nullptr; // null for no link
    int linkStyle = 0;
};

// The child in the direction that stands last of all; null for none.
const Link *LastChild(const Node &from, const QPointF &growth) {
    const QPointF behind = Behind(growth);
    const Link *last = nullptr;
    const auto place = [&](const Link &link) {
        return QPointF::dotProduct(link.Destination().Bounds().bottomRight(), behind);
    };
    for (const Link *link : LinksToChildren(from)) {
        if (GrowthTowards(from, link->Destination()) != growth) continue;
        if (!last || place(*link) > place(*last)) last = link;
    }
    return last;
}

// A box of the size behind the last child, on the side of it that looks to the parent.
QRectF BehindLast(const QRectF &last, const QSizeF &size, const QPointF &growth) {
    QRectF box(last.topLeft(), size);
    if (growth.x() < 0) box.moveRight(last.right());
    if (growth.y() < 0) box.moveBottom(last.bottom());
    return growth.x() != 0 ? box.translated(0, last.height() + kKinGap)
                           : box.translated(last.width() + kKinGap, 0);
}

// The first child is linked as one that the user draws a link to, the others as the one before them.
Wanted WantedChild(const Scene &scene, Node &from, const QRectF &box, const QPointF &direction) {
    QPointF growth = GrowthAt(from).value_or(direction);
    if (const Link *last = LastChild(from, growth))
        return {BehindLast(last->Destination().Bounds(), box.size(), growth), Behind(growth),
                last->Destination().Bounds().center(), &from, last->Style()};
    if (!IsOnSurface(Away(box, growth))) growth = -growth;
    return {Away(box, growth), Behind(growth), box.center(), &from, scene.StyleToDraw()};
}

Wanted WantedSibling(Node &from, const QRectF &box, const QPointF &direction) {
    const Link *link = LinkFromParent(from);
    if (!link) {
        const QPointF behind = Behind(GrowthAt(from).value_or(direction));
        return {Away(box, behind), behind, box.center(), nullptr, 0};
    }
    const QPointF behind = Behind(GrowthTowards(link->Source(), from));
    return {Away(box, behind), behind, box.center(), &link->Source(), link->Style()};
}

Node *AddWanted(Scene &scene, const Wanted &wanted) {
    const ActionGroup group(scene.Model());
    NewNode node;
    const auto aside = wanted.parent
                           ? MakeRoom(scene, *wanted.parent, wanted.place, wanted.after, wanted.behind)
                           : std::nullopt;
    if (aside) MoveAside(scene, *aside);
    node.place = aside ? aside->place : NearestFree(scene, wanted.place, wanted.behind);
    if (wanted.parent) node.linkedFrom = wanted.parent->Id();
    node.linkStyle = wanted.linkStyle;
    return AddNewNode(scene.Model(), node);
}

} // namespace

Node *AddKin(Scene &scene, Node &from, Kin kin, const QPointF &direction) {
    QRectF box = from.Bounds();
    box.setSize(box.size().expandedTo(QSizeF(kSmallestSide, kSmallestSide)));
    return AddWanted(scene, kin == Kin::Child ? WantedChild(scene, from, box, direction)
                                              : WantedSibling(from, box, direction));
}

Node *AddNodeInMiddle(Scene &scene, const QRectF &seen) {
    QRectF box(QPointF(), kUsualSize);
    box.moveCenter(seen.center());
    box.moveTopLeft({qMax(0.0, box.left()), qMax(0.0, box.top())});
    NewNode node;
    node.place = IsFree(scene, box) ? box : NearestFree(scene, Away(box, {1, 0}), {0, 1});
    return AddNewNode(scene.Model(), node);
}

} // namespace diagram
