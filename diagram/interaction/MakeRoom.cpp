#include "diagram/interaction/MakeRoom.h"

#include "diagram/interaction/Family.h"
#include "diagram/interaction/HeldItems.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"

#include <algorithm>
#include <unordered_set>

namespace diagram {

namespace {

double Along(const QPointF &at, const QPointF &direction) { return QPointF::dotProduct(at, direction); }

std::vector<Node *> NodesIn(Scene &scene, const QRectF &box) {
    std::vector<Item *> items;
    scene.ItemsIn(box, items);
    std::vector<Node *> nodes;
    for (Item *item : items)
        if (Node *node = item->AsNode(); node && node->Bounds().intersects(box)) nodes.push_back(node);
    return nodes;
}

// The parent and its own parents.
std::vector<const Node *> LineOf(const Node &parent) {
    std::vector<const Node *> line{&parent};
    while (const Node *next = ParentOf(*line.back())) {
        if (std::ranges::find(line, next) != line.end()) break;
        line.push_back(next);
    }
    return line;
}

std::vector<Node *> WhatLiesBehind(const Node &parent, const QPointF &after, const QPointF &behind) {
    const std::vector<const Node *> line = LineOf(parent);
    std::vector<const Node *> taken = line;
    std::vector<Node *> nodes;
    double from = Along(after, behind);
    for (const Node *each : line) {
        for (Link *link : LinksToChildren(*each)) {
            Node &child = link->Destination();
            if (Along(child.Bounds().center(), behind) <= from) continue;
            const std::vector<Node *> all = SubtreeOf(child, taken);
            nodes.insert(nodes.end(), all.begin(), all.end());
        }
        from = Along(each->Bounds().center(), behind);
    }
    return nodes;
}

// Whether one of them would come onto another node.
bool MeetsOthers(Scene &scene, const Aside &aside, const std::unordered_set<const Node *> &moving) {
    return std::ranges::any_of(aside.nodes, [&](const Node *node) {
        const std::vector<Node *> there = NodesIn(scene, node->Bounds().translated(aside.distance));
        return std::ranges::any_of(there, [&](const Node *other) {
            return !moving.contains(other) && !other->Bounds().intersects(node->Bounds());
        });
    });
}

} // namespace

std::optional<Aside> MakeRoom(Scene &scene, Node &parent, const QRectF &place, const QPointF &after,
                              const QPointF &behind) {
    const std::vector<Node *> inTheWay = NodesIn(scene, place);
    if (inTheWay.empty()) return Aside();
    Aside aside{WhatLiesBehind(parent, after, behind), {}};
    const std::unordered_set<const Node *> moving(aside.nodes.begin(), aside.nodes.end());
    double distance = 0;
    for (const Node *node : inTheWay) {
        if (!moving.contains(node)) return std::nullopt;
        const double needed = Along(place.bottomRight() - node->Bounds().topLeft(), behind) + kKinGap;
        distance = std::max(distance, needed);
    }
    aside.distance = behind * distance;
    if (MeetsOthers(scene, aside, moving)) return std::nullopt;
    return aside;
}

void MoveAside(Scene &scene, const Aside &aside) {
    if (aside.nodes.empty()) return;
    Surface &surface = scene.Model();
    HeldItems(aside.nodes).MoveBy(surface, aside.distance);
    surface.UnselectAll();
    for (Node *node : aside.nodes) node->SetSelected(true);
    surface.Events().AfterMove(surface);
}

} // namespace diagram
