#include "diagram/interaction/Family.h"

#include "diagram/interaction/Selecting.h"
#include "diagram/model/Surface.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>

namespace diagram {

namespace {

bool IsTwig(const Link &link) {
    return !link.Hidden() && &link.Source() != &link.Destination() && IsSelectable(link.Source()) &&
           IsSelectable(link.Destination());
}

} // namespace

Link *LinkFromParent(const Node &node) {
    for (Link *link : node.Links())
        if (&link->Destination() == &node && IsTwig(*link)) return link;
    return nullptr;
}

Node *ParentOf(const Node &node) {
    const Link *link = LinkFromParent(node);
    return link ? &link->Source() : nullptr;
}

std::vector<Link *> LinksToChildren(const Node &node) {
    std::vector<Link *> links;
    std::unordered_set<const Node *> seen;
    for (Link *link : node.Links())
        if (&link->Source() == &node && IsTwig(*link) && seen.insert(&link->Destination()).second)
            links.push_back(link);
    return links;
}

std::vector<Node *> SubtreeOf(Node &node, std::vector<const Node *> &taken) {
    std::unordered_set<const Node *> seen(taken.begin(), taken.end());
    std::vector<Node *> nodes;
    if (seen.insert(&node).second) nodes.push_back(&node);
    for (size_t i = 0; i < nodes.size(); ++i)
        for (Link *link : LinksToChildren(*nodes[i]))
            if (seen.insert(&link->Destination()).second) nodes.push_back(&link->Destination());
    taken.insert(taken.end(), nodes.begin(), nodes.end());
    return nodes;
}

QPointF DirectionTo(const Node &from, const Node &to) {
    const QRectF a = from.Bounds(), b = to.Bounds();
    const QPointF way = b.center() - a.center();
    const double across = std::abs(way.x()) - (a.width() + b.width()) / 2;
    const double down = std::abs(way.y()) - (a.height() + b.height()) / 2;
    if (across >= down) return {way.x() < 0 ? -1.0 : 1.0, 0};
    return {0, way.y() < 0 ? -1.0 : 1.0};
}

bool IsBeyond(const Node &from, const Node &to, const QPointF &direction) {
    const QRectF a = from.Bounds(), b = to.Bounds();
    if (direction.x() != 0) return direction.x() > 0 ? b.left() >= a.right() : b.right() <= a.left();
    return direction.y() > 0 ? b.top() >= a.bottom() : b.bottom() <= a.top();
}

std::optional<QPointF> GrowthAt(const Node &node) {
    constexpr QPointF kDirections[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
    std::optional<QPointF> most;
    std::pair<int, int> best{0, 0};
    const std::vector<Link *> links = LinksToChildren(node);
    for (const QPointF &direction : kDirections) {
        std::pair<int, int> count{0, 0};
        for (const Link *link : links) {
            count.first += IsBeyond(node, link->Destination(), direction);
            count.second += DirectionTo(node, link->Destination()) == direction;
        }
        if (count > best) best = count, most = direction;
    }
    if (most) return most;
    const Node *parent = ParentOf(node);
    return parent ? std::optional(GrowthTowards(*parent, node)) : std::nullopt;
}

QPointF GrowthTowards(const Node &parent, const Node &child) {
    const QPointF direction = DirectionTo(parent, child);
    const QPointF growth = GrowthAt(parent).value_or(direction);
    return IsBeyond(parent, child, growth) ? growth : direction;
}

} // namespace diagram
