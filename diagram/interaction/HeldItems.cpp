#include "diagram/interaction/HeldItems.h"

#include "diagram/model/Calendar.h"
#include "diagram/shapes/LinkStyles.h"

#include <algorithm>
#include <unordered_set>

namespace diagram {

namespace {

// After the link was routed, if need be, and it was found out whose its bends are.
LinkData DataOf(const Link &link) {
    link.Route();
    link.OwnBends();
    return link.Data();
}

// Where a coordinate that lay on `from` to `from + length` lies on the same stretch elsewhere.
float InPlace(float at, float from, float length, float newFrom, float newLength) {
    const double factor = length > 0 ? double(newLength) / length : 1;
    return float(newFrom + (double(at) - from) * factor);
}

// Its bends are the user's, and its ends lie on a side of their nodes.
bool FollowsItsNode(const LinkData &link) {
    const LinkStyleRow *row = FindLinkStyle(link.style);
    return row && row->form == LinkForm::Orthogonal && link.ownBends && !link.addPointsMode &&
           !link.movePointsMode && link.points.size() == row->directions.size() + 1;
}

// The bend next to an end that has moved lies level with it, or upright, as the style has it.
void TakeBendAlong(LinkData &link, bool atSource) {
    const std::string_view directions = FindLinkStyle(link.style)->directions;
    const Point &end = atSource ? link.points.front() : link.points.back();
    Point &bend = atSource ? link.points[1] : link.points[link.points.size() - 2];
    if ((atSource ? directions.front() : directions.back()) == 'H') {
        bend.y = end.y;
    } else {
        bend.x = end.x;
    }
}

Point InPlace(const Point &at, const NodeData &before, const NodeData &now) {
    return {InPlace(at.x, before.left, before.width, now.left, now.width),
            InPlace(at.y, before.top, before.height, now.top, now.height)};
}

} // namespace

HeldItems::HeldItems(const std::vector<Node *> &nodes) {
    std::unordered_set<const Node *> held(nodes.begin(), nodes.end());
    std::unordered_set<const Link *> seen;
    std::vector<ItemId> moved, inside;
    for (Node *node : nodes) {
        nodes_.push_back({node->Id(), node->Data()});
        moved.push_back(node->Id());
        for (Link *link : node->Links()) {
            if (!seen.insert(link).second) continue;
            const bool inner = held.contains(&link->Source()) && held.contains(&link->Destination());
            links_.push_back({link->Id(), DataOf(*link), inner});
            if (inner) inside.push_back(link->Id());
        }
    }
    if (!nodes.empty())
        trial_ = std::make_unique<RouteTrial>(nodes.front()->Owner(), std::move(moved), std::move(inside));
}

HeldItems::HeldItems(Link &link) { links_.push_back({link.Id(), DataOf(link), false}); }

QRectF HeldItems::Extent() const {
    QRectF all;
    for (const HeldNode &node : nodes_)
        all |=
            QRectF(node.data.left, node.data.top, qMax(node.data.width, 1.0F), qMax(node.data.height, 1.0F));
    return all;
}

void HeldItems::Restore(Surface &surface) const {
    if (!trial_) return RestoreLinks(surface);
    trial_->GiveUp([&] {
        for (const HeldNode &held : nodes_)
            if (Node *node = surface.FindNode(held.id)) surface.Overwrite(*node, held.data);
        RestoreLinks(surface);
    });
}

void HeldItems::RestoreLinks(Surface &surface) const {
    for (const HeldLink &held : links_)
        if (Link *link = surface.FindLink(held.id)) surface.Overwrite(*link, held.data);
}

void HeldItems::RestoreBends(Surface &surface) const {
    for (const HeldLink &held : links_) {
        const bool routed = !held.data.ownBends && !held.data.addPointsMode && !held.data.movePointsMode;
        Link *link = held.inner || routed ? nullptr : surface.FindLink(held.id);
        if (link) surface.Overwrite(*link, held.data);
    }
}

void HeldItems::Try(Surface &surface, const std::function<bool()> &place) const {
    if (!trial_) return;
    trial_->Move([&] {
        RestoreBends(surface);
        const bool elsewhere = place();
        TakeKeptEndsAlong(surface);
        return elsewhere;
    });
}

void HeldItems::MoveBy(Surface &surface, const QPointF &distance) const {
    const auto dx = float(distance.x());
    const auto dy = float(distance.y());
    Try(surface, [&] {
        for (const HeldNode &held : nodes_) {
            const NodeData &from = held.data;
            if (Node *node = surface.FindNode(held.id))
                node->SetBounds(from.left + dx, from.top + dy, from.width, from.height);
        }
        MoveInnerLinks(surface, distance);
        return !distance.isNull();
    });
}

void HeldItems::MoveWithDateLinks(Surface &surface, const QPointF &distance,
                                  const QPointF &alongTheStrip) const {
    MoveBy(surface, distance);
    TakeDateLinksAlong(surface, distance, alongTheStrip);
}

const HeldNode *HeldItems::FindHeld(ItemId id) const {
    const auto found = std::ranges::find(nodes_, id, &HeldNode::id);
    return found == nodes_.end() ? nullptr : &*found;
}

void HeldItems::TakeKeptEndsAlong(Surface &surface) const {
    for (const HeldLink &held : links_) {
        const bool follows = FollowsItsNode(held.data);
        Link *link =
            held.inner || !(held.data.movePointsMode || follows) ? nullptr : surface.FindLink(held.id);
        if (!link || held.data.points.empty()) continue;
        LinkData data = held.data;
        const HeldNode *source = FindHeld(data.source);
        const HeldNode *end = source ? source : FindHeld(data.destination);
        const Node *node = end ? surface.FindNode(end->id) : nullptr;
        if (!node) continue;
        Point &point = source ? data.points.front() : data.points.back();
        point = InPlace(point, end->data, node->Data());
        if (follows) {
            TakeBendAlong(data, source != nullptr);
            link->Points().Assign(std::move(data.points)); // routed on from there
        } else {
            surface.Overwrite(*link, std::move(data));
        }
    }
}

// The run along the strip of a route with two bends stays as far from the strip as it was.
void HeldItems::TakeDateLinksAlong(Surface &surface, const QPointF &distance,
                                   const QPointF &alongTheStrip) const {
    for (const HeldLink &held : links_) {
        Link *link = held.inner || !FindHeld(held.data.source) ? nullptr : surface.FindLink(held.id);
        if (!link || !IsQuietDateLink(*link)) continue;
        LinkData data = held.data;
        const std::size_t withNode = data.points.size() == 3 ? 2 : 1;
        for (std::size_t i = 0; i < data.points.size(); ++i) {
            const QPointF &way = i < withNode ? distance : alongTheStrip;
            data.points[i] = ToPoint(ToQPointF(data.points[i]) + way);
        }
        surface.Overwrite(*link, std::move(data));
    }
}

void HeldItems::MoveInnerLinks(Surface &surface, const QPointF &distance) const {
    for (const HeldLink &held : links_) {
        Link *link = held.inner ? surface.FindLink(held.id) : nullptr;
        if (!link) continue;
        LinkData data = held.data;
        for (Point &point : data.points)
            point = {point.x + float(distance.x()), point.y + float(distance.y())};
        surface.Overwrite(*link, std::move(data));
    }
}

} // namespace diagram
