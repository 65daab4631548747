#include "diagram/interaction/Neighbours.h"

#include "diagram/interaction/KeyInput.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/model/Surface.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace diagram {

namespace {

// How many times a twip to the side counts beside one straight on, to nodes that lie level with the first one
// and to others.
constexpr double kAsideWhenLevel = 2, kAsideElse = 4;
constexpr double kMostAside = 2; // times as far as straight on; farther to the side others aren't found

// Keeps the nearest of the candidates that it is shown.
class Nearest {
public:
    Nearest(const Node &from, const QPointF &direction) : from_(from), direction_(direction) {}

    void Look(Node &node) {
        if (&node == &from_ || !IsSelectable(node)) return;
        const QPointF way = node.Bounds().center() - from_.Bounds().center();
        const double ahead = QPointF::dotProduct(way, direction_);
        const double aside = std::abs(way.x() * direction_.y() - way.y() * direction_.x());
        const bool level = IsLevel(node.Bounds());
        const double distance = ahead + (level ? kAsideWhenLevel : kAsideElse) * aside;
        if (ahead <= 0 || (!level && aside > kMostAside * ahead) || distance >= distance_) return;
        distance_ = distance;
        found_ = &node;
    }
    Node *Found() const { return found_; }

private:
    // Whether a straight line in the direction leads from the one to the other.
    bool IsLevel(const QRectF &box) const {
        const QRectF from = from_.Bounds();
        return direction_.x() != 0 ? box.top() < from.bottom() && from.top() < box.bottom()
                                   : box.left() < from.right() && from.left() < box.right();
    }

    const Node &from_;
    QPointF direction_;
    double distance_ = std::numeric_limits<double>::infinity();
    Node *found_ = nullptr;
};

} // namespace

Node *NeighbourTowards(const Node &from, const QPointF &direction) {
    Nearest nearest(from, direction);
    for (Node &node : from.Owner().Nodes()) nearest.Look(node);
    return nearest.Found();
}

Node *LinkedTowards(const Node &from, const QPointF &direction) {
    Nearest nearest(from, direction);
    for (Link *link : from.Links()) {
        if (link->Hidden()) continue;
        nearest.Look(&link->Source() == &from ? link->Destination() : link->Source());
    }
    return nearest.Found();
}

Node *NearestNode(const Node &from) {
    Node *nearest = nullptr;
    double least = std::numeric_limits<double>::infinity();
    for (Node &node : from.Owner().Nodes()) {
        if (&node == &from || !IsSelectable(node)) continue;
        const QPointF way = node.Bounds().center() - from.Bounds().center();
        const double distance = QPointF::dotProduct(way, way);
        if (distance < least) least = distance, nearest = &node;
    }
    return nearest;
}

Node *NodeByKey(const Surface &surface, const Node *from, const KeyInput &input) {
    if (const int step = input.Tab()) return NextInReadingOrder(surface, from, step);
    const QPointF direction = input.Arrow();
    if (direction.isNull() || !from) return nullptr;
    const bool alongLinks = input.Ctrl() && input.Alt();
    return alongLinks ? LinkedTowards(*from, direction) : NeighbourTowards(*from, direction);
}

Link *NextLinkOf(const Node &node, const Link *from, int step) {
    std::vector<Link *> links;
    for (Link *link : node.Links())
        if (IsSelectable(*link) && (links.empty() || links.back() != link)) links.push_back(link);
    if (links.empty()) return nullptr;
    const auto at = std::ranges::find(links, from);
    if (at == links.end()) return step > 0 ? links.front() : links.back();
    const auto count = std::ssize(links);
    return links[size_t((at - links.begin() + step + count) % count)];
}

Node &EndTowards(const Link &link, const QPointF &direction) {
    const QPointF along = ToQPointF(link.Route().back()) - ToQPointF(link.Route().front());
    return QPointF::dotProduct(along, direction) < 0 ? link.Source() : link.Destination();
}

} // namespace diagram
