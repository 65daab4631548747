#include "diagram/hit/HitTest.h"

#include "diagram/geometry/Polyline.h"
#include "diagram/hit/Grips.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Bounds.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/Measures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace diagram {

namespace {

double DistanceToPiece(const QPointF &point, const QPointF &from, const QPointF &to) {
    const QPointF way = to - from, apart = point - from;
    const double square = QPointF::dotProduct(way, way);
    const double share = square > 0 ? std::clamp(QPointF::dotProduct(apart, way) / square, 0.0, 1.0) : 0;
    return Distance(point, from + way * share);
}

// Finds the nearest of the places in whose square the point lies; the squares have sides of `size`.
class Grasp {
public:
    Grasp(const QPointF &point, double size) : point_(point), reach_(size / 2) {}
    void Offer(const QPointF &place, int index) {
        const QPointF apart = place - point_;
        const double away = std::max(std::abs(apart.x()), std::abs(apart.y()));
        if (away > reach_ || away >= nearest_) return;
        nearest_ = away;
        index_ = index;
    }
    int Index() const { return index_; } // -1 for none

private:
    QPointF point_;
    double reach_;
    double nearest_ = 1e300;
    int index_ = -1;
};

int HandleAt(const Node &node, const QPointF &point, double size) {
    const std::array<QPointF, 8> places = HandlePlaces(node.Bounds(), size);
    Grasp grasp(point, size);
    // Corners first: on a small node they count before the sides.
    for (int start = 0; start < 2; ++start) {
        for (int i = start; i < 8; i += 2) grasp.Offer(places[size_t(i)], i);
    }
    return grasp.Index();
}

int BendAt(const Link &link, const QPointF &point, double size) {
    Grasp grasp(point, size);
    const auto &route = link.Route();
    for (std::size_t i = 0; i < route.size(); ++i) grasp.Offer(ToQPointF(route[i]), int(i));
    return grasp.Index();
}

int SegmentHandleAt(const Link &link, const QPointF &point, double size) {
    Grasp grasp(point, size);
    const auto &route = link.Route();
    for (std::size_t i = 1; i < route.size(); ++i) {
        const QPointF from = ToQPointF(route[i - 1]), to = ToQPointF(route[i]);
        if (HasSegmentHandle(Distance(from, to), size)) grasp.Offer((from + to) / 2, int(i) - 1);
    }
    return grasp.Index();
}

// A segment, between two points of a link, and how far away its line is.
struct NearSegment {
    int index = -1; // none
    double away = 0;
};

// The segment whose line is nearest to the point, within the tolerance; on the line itself the distance is 0.
NearSegment SegmentAt(const Link &link, const QPointF &point, double tolerance) {
    const std::vector<QPointF> pieces = RoutePieces(link);
    const double half = link.DrawWidth() * kTwipsPerPixel / 2;
    double nearest = std::max(tolerance, half);
    int found = -1;
    for (std::size_t i = 1; i < pieces.size(); ++i) {
        const double away = DistanceToPiece(point, pieces[i - 1], pieces[i]);
        if (away > nearest || (away == nearest && found >= 0)) continue;
        nearest = away;
        found = int(i) - 1;
    }
    if (found < 0) return {};
    // A curve has more pieces than segments.
    const auto segment = std::size_t(found) * (link.Route().size() - 1) / (pieces.size() - 1);
    return {int(segment), std::max(0.0, nearest - half)};
}

bool HoldsPoint(Scene &scene, const Node &node, const QPointF &point, double tolerance) {
    const QRectF box = node.ShownBounds();
    // A node that is too thin to be hit is hit beside it, too.
    const double x = std::max(0.0, tolerance - box.width()) / 2,
                 y = std::max(0.0, tolerance - box.height()) / 2;
    if (!box.adjusted(-x, -y, x, y).contains(point)) return false;
    return x > 0 || y > 0 || scene.NodeOutline(node).contains(point);
}

// From the topmost down.
std::vector<Item *> ItemsNear(Scene &scene, const QPointF &point, double reach) {
    std::vector<Item *> items;
    scene.ItemsIn(QRectF(point.x() - reach, point.y() - reach, 2 * reach, 2 * reach), items);
    std::ranges::reverse(items);
    return items;
}

std::optional<Hit> HandleHit(Item &item, const QPointF &point, double size) {
    if (Node *node = item.AsNode(); node && node->Selected()) {
        if (const int index = HandleAt(*node, point, size); index >= 0)
            return Hit{HitKind::Handle, node, nullptr, index};
    }
    if (Link *link = item.AsLink(); link && link->Selected()) {
        if (const int index = BendAt(*link, point, size); index >= 0)
            return Hit{HitKind::Bend, nullptr, link, index};
        if (const int index = SegmentHandleAt(*link, point, size); index >= 0) {
            return Hit{HitKind::SegmentHandle, nullptr, link, index};
        }
    }
    return std::nullopt;
}

int LinkStartAt(const Node &node, const QPointF &point, double size) {
    if (!node.Selectable() || !HasLinkStarts(node.Bounds(), size)) return -1;
    Grasp grasp(point, 2 * LinkStartReach(size));
    const std::array<QPointF, 4> places = LinkStartPlaces(node.Bounds(), size);
    for (int i = 0; i < 4; ++i) grasp.Offer(places[size_t(i)], i);
    return grasp.Index();
}

std::optional<Hit> LinkStartHit(const std::vector<Item *> &items, const QPointF &point, double size) {
    for (Item *item : items) {
        Node *node = item->AsNode();
        if (const int index = node ? LinkStartAt(*node, point, size) : -1; index >= 0)
            return Hit{HitKind::LinkStart, node, nullptr, index};
    }
    return std::nullopt;
}

// A link that the point lies on, or near to.
struct NearLink {
    Hit hit;
    double away = 0;
};

std::optional<NearLink> LinkHit(Scene &scene, Link &link, const QPointF &point, double tolerance) {
    if (!link.Selectable()) return std::nullopt;
    if (scene.LabelBounds(link).contains(point)) return NearLink{{HitKind::LinkLabel, nullptr, &link, -1}, 0};
    const NearSegment segment = SegmentAt(link, point, tolerance);
    if (segment.index < 0) return std::nullopt;
    return NearLink{{HitKind::Link, nullptr, &link, segment.index}, segment.away};
}

// Whether the link joins two nodes that lie inside of this one, as in a frame. Such a link is hit before the
// node even when the point only lies near to its line.
bool RunsInside(const Link &link, const Node &node) {
    const QRectF box = node.Bounds();
    return &link.Source() != &node && &link.Destination() != &node && box.contains(link.Source().Bounds()) &&
           box.contains(link.Destination().Bounds());
}

// Whether it lies above the places where links start.
bool Covers(const Hit &body) { return body.kind == HitKind::LinkLabel || body.node; }

// Of the links above the topmost node the nearest one, of several as near the topmost. Where the point isn't
// on its line, the node, unless the link runs inside of that.
Hit TopmostBody(Scene &scene, const std::vector<Item *> &items, const QPointF &point,
                const HitOptions &options) {
    std::optional<NearLink> nearest;
    for (Item *item : items) {
        if (Node *node = item->AsNode()) {
            if (!node->Selectable() || !HoldsPoint(scene, *node, point, options.tolerance)) continue;
            if (nearest && (nearest->away == 0 || RunsInside(*nearest->hit.link, *node))) break;
            return {HitKind::Node, node, nullptr, -1};
        }
        const auto link = LinkHit(scene, *item->AsLink(), point, options.tolerance);
        if (link && (!nearest || link->away < nearest->away)) nearest = link;
    }
    return nearest ? nearest->hit : Hit{};
}

Node *TopmostNode(Scene &scene, const QPointF &point, bool selectable) {
    for (Item *item : ItemsNear(scene, point, kTwipsPerPixel)) {
        Node *node = item->AsNode();
        if (!node || (selectable && !node->Selectable())) continue;
        if (HoldsPoint(scene, *node, point, kTwipsPerPixel)) return node;
    }
    return nullptr;
}

} // namespace

Hit HitTest(Scene &scene, const QPointF &point, const HitOptions &options) {
    const double reach = std::max(options.tolerance, options.handles ? GraspReach(options.handleSize) : 0);
    const std::vector<Item *> items = ItemsNear(scene, point, reach);
    if (options.handles) {
        for (Item *item : items) {
            if (const auto hit = HandleHit(*item, point, options.handleSize)) return *hit;
        }
    }
    const Hit body = TopmostBody(scene, items, point, options);
    if (!options.handles || !options.linkStarts || Covers(body)) return body;
    return LinkStartHit(items, point, options.handleSize).value_or(body);
}

Node *NodeAtPoint(Scene &scene, float x, float y) { return TopmostNode(scene, {x, y}, false); }

Node *SelectableNodeAt(Scene &scene, const QPointF &point) { return TopmostNode(scene, point, true); }

Link *LinkAtPoint(Scene &scene, float x, float y, double tolerance) {
    const QPointF point(x, y);
    Link *found = nullptr;
    double nearest = 0;
    for (Item *item : ItemsNear(scene, point, tolerance)) {
        Link *link = item->AsLink();
        const NearSegment segment = link ? SegmentAt(*link, point, tolerance) : NearSegment();
        if (segment.index < 0 || (found && segment.away >= nearest)) continue;
        found = link;
        nearest = segment.away;
    }
    return found;
}

} // namespace diagram
