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

std::unordered_set<const Node *> SetOf(const std::vector<Node *> &nodes) {
    return {nodes.begin(), nodes.end()};
}

// Makes room by moving on what stands behind the place; none where something else is in the way.
std::optional<Aside> MoveThoseBehind(Scene &scene, Node &parent, const QRectF &place, const QPointF &after,
                                     const QPointF &behind) {
    Aside aside{WhatLiesBehind(parent, after, behind), {}, place};
    const std::unordered_set<const Node *> moving = SetOf(aside.nodes);
    double distance = 0;
    for (const Node *node : NodesIn(scene, place)) {
        if (!moving.contains(node)) return std::nullopt;
        const double needed = Along(place.bottomRight() - node->Bounds().topLeft(), behind) + kKinGap;
        distance = std::max(distance, needed);
    }
    aside.distance = behind * distance;
    if (MeetsOthers(scene, aside, moving)) return std::nullopt;
    return aside;
}

// How far the place has to go on until only nodes that move along lie there; none where one lies there that
// is not of the family.
std::optional<double> DistanceBehindFamily(Scene &scene, const QRectF &place, const QPointF &behind,
                                           const std::unordered_set<const Node *> &moving,
                                           const std::unordered_set<const Node *> &family) {
    for (double distance = 0;;) {
        const QRectF there = place.translated(behind * distance);
        double further = 0;
        for (const Node *node : NodesIn(scene, there)) {
            if (moving.contains(node)) continue;
            if (!family.contains(node)) return std::nullopt;
            further =
                std::max(further, Along(node->Bounds().bottomRight() - there.topLeft(), behind) + kKinGap);
        }
        if (further == 0) return distance;
        distance += further;
    }
}

// Makes room by moving on the parent with its children and all that stands behind it, and the place with
// them.
std::optional<Aside> MoveParent(Scene &scene, Node &parent, const QRectF &place, const QPointF &behind) {
    std::vector<const Node *> line = LineOf(parent);
    if (line.size() < 2) return std::nullopt;
    Node &grandparent = *ParentOf(parent), &root = *ParentOf(*line[line.size() - 2]);
    std::vector<const Node *> none, taken(line.begin() + 1, line.end());
    const std::unordered_set<const Node *> family = SetOf(SubtreeOf(root, none));
    Aside aside{SubtreeOf(parent, taken), {}, place};
    std::unordered_set<const Node *> moving = SetOf(aside.nodes);
    for (Node *node : WhatLiesBehind(grandparent, parent.Bounds().center(), behind))
        if (moving.insert(node).second) aside.nodes.push_back(node);
    const std::optional<double> distance = DistanceBehindFamily(scene, place, behind, moving, family);
    if (!distance) return std::nullopt;
    aside.distance = behind * *distance;
    aside.place.translate(aside.distance);
    if (MeetsOthers(scene, aside, moving)) return std::nullopt;
    return aside;
}

} // namespace

std::optional<Aside> MakeRoom(Scene &scene, Node &parent, const QRectF &place, const QPointF &after,
                              const QPointF &behind) {
    if (NodesIn(scene, place).empty()) return Aside{{}, {}, place};
    const std::optional<Aside> aside = MoveThoseBehind(scene, parent, place, after, behind);
    return aside ? aside : MoveParent(scene, parent, place, behind);
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
