#include "diagram/model/Routing.h"

#include "diagram/model/RouteRequests.h"
#include "diagram/model/Surface.h"
#include "diagram/shapes/LinkStyles.h"

#include <algorithm>
#include <cmath>

namespace diagram {

namespace {

constexpr float kSamePlace = 2; // twips; below anything that a hand can place

bool AreNear(const Point &a, const Point &b) {
    return std::abs(a.x - b.x) < kSamePlace && std::abs(a.y - b.y) < kSamePlace;
}

bool HasSameBends(const std::vector<Point> &a, const std::vector<Point> &b) {
    return a.size() == b.size() && std::equal(a.begin() + 1, a.end() - 1, b.begin() + 1, AreNear);
}

bool IsPolyline(const LinkData &link) {
    const LinkStyleRow *row = FindLinkStyle(link.style);
    return row && row->form == LinkForm::Polyline;
}

// Whether the router chooses bends for links of that style, so that they can give way.
bool HasRoutedBends(const LinkData &link) {
    const LinkStyleRow *row = FindLinkStyle(link.style);
    return IsPolyline(link) || (row && row->form == LinkForm::Orthogonal);
}

} // namespace

std::vector<Point> Routing::RouteOf(const LinkDraft &link, bool keepBends) {
    RouteRequest request = RequestFor(link);
    request.keepBends = keepBends;
    const NodesAround obstacles(nodes_, link, request);
    if (!keepBends && HasRoutedBends(*link.data) && !IsCrowded(link)) {
        NeedNodes();
        request.obstacles = &obstacles;
    }
    return diagram::FindRoute(request);
}

std::vector<Point> Routing::RouteOf(const LinkDraft &link) {
    UpdateNodes();
    return RouteOf(link, link.data->ownBends);
}

void Routing::FindRoute(Link &link) {
    UpdateNodes();
    RouteChanges(link);
    const bool untidies = !IsQuiet() && surface_.Recording();
    if (untidies && nudged_.contains(link.Id())) former_.try_emplace(link.Id(), link.data_.points);
    link.data_.points = RouteOf(LinkDraft(link), link.data_.ownBends);
    link.stale_ = false;
    LinkAdded(link);
    if (untidies) untidy_.push_back(link.Id());
}

// Bends that the router gives for the present boxes are its own. Nodes that have changed since the routes
// were settled count as they were. A straight line that nobody vouches for stays one, as it did in older
// maps, where its end may be pinned besides.
void Routing::Judge(Link &link) {
    if (!link.unjudged_ || link.KeepsPoints()) return;
    link.unjudged_ = false;
    const auto &points = link.data_.points;
    link.data_.ownBends =
        points.size() > 2 ? !HasSameBends(points, RouteOf(LinkDraft(link), false)) : IsPolyline(link.data_);
}

bool Routing::IsQuiet() const { return replaying_ || surface_.Loading(); }

void Routing::SettleAll() {
    if (!blocking_.empty()) UpdateRoutes();
    for (const ItemId id : std::exchange(blocking_, {})) {
        Node *node = surface_.FindNode(id);
        if (!node) continue;
        node->blocks_ = false;
        if (!node->Hidden()) MakeWayFor(*node);
    }
    UpdateNodes();
    for (const ItemId id : std::exchange(moved_, {})) {
        Link *link = surface_.FindLink(id);
        if (!link || link->stale_ || link->KeepsPoints() || !HasRoutedBends(link->data_)) continue;
        const LinkDraft draft(*link);
        const RouteRequest request = RequestFor(draft);
        NeedNodes();
        if (IsMet(NodesAround(nodes_, draft, request), link->data_.points)) GiveWay(*link);
    }
}

void Routing::Keep() {
    for (const ItemId id : std::exchange(blocking_, {}))
        if (Node *node = surface_.FindNode(id)) node->blocks_ = false;
    moved_.clear();
}

void Routing::Check(Link &link) { moved_.push_back(link.Id()); }

void Routing::MakeWayFor(const Node &node) {
    std::vector<BoxIndex::Entry> found;
    const QRectF box = node.Bounds();
    if (box.isEmpty()) return;
    routes_.Find(box.adjusted(-kNearness, -kNearness, kNearness, kNearness), found);
    for (const BoxIndex::Entry &entry : found) {
        Link *link = surface_.FindLink(entry.second);
        if (link && IsBlockedBy(*link, node)) GiveWay(*link);
    }
}

bool Routing::IsBlockedBy(const Link &link, const Node &node) const {
    if (link.stale_ || link.KeepsPoints() || link.data_.ownBends || !HasRoutedBends(link.data_)) return false;
    if (&link.Source() == &node || &link.Destination() == &node || IsCrowded(LinkDraft(link))) return false;
    const std::vector<Point> &route = link.data_.points;
    bool meets = false;
    for (std::size_t i = 1; i < route.size() && !meets; ++i)
        meets = Meets(node.Bounds(), ToQPointF(route[i - 1]), ToQPointF(route[i]), kNearness);
    return meets && !Overlap(node.Bounds(), link.Source().Bounds()) &&
           !Overlap(node.Bounds(), link.Destination().Bounds());
}

void Routing::GiveWay(Link &link) {
    Judge(link);
    if (link.data_.ownBends) return;
    const Uncounted derived(surface_);
    surface_.Record(link);
    if (const auto held = held_.lock()) held->links.try_emplace(link.Id(), link.data_);
    link.stale_ = true;
    surface_.Notify(link, Change::Geometry);
}

void Routing::RespaceBeside(const Link &link) {
    if (IsQuiet()) return;
    for (Link *other : LinksBeside(link)) {
        if (other->doomed_ || other->stale_ || other->KeepsPoints()) continue;
        GiveWay(*other);
    }
}

} // namespace diagram
