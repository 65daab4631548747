#include "diagram/model/Routing.h"

#include "diagram/model/Actions.h"
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

// Whether the router chooses bends for links of that style, so that they can give way.
bool HasRoutedBends(const LinkData &link) {
    return HasForm(link.style, LinkForm::Polyline) || HasForm(link.style, LinkForm::Orthogonal);
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
    Settle();
    const bool kept = link.data->addPointsMode || link.data->movePointsMode;
    if (kept && link.data->points.size() > 1) return link.data->points;
    UpdateNodes();
    return RouteOf(link, link.data->ownBends);
}

const std::vector<Point> &Routing::RouteOf(Link &link) {
    Settle();
    if (IsStale(link)) FindRoute(link);
    return link.Data().points;
}

void Routing::Recalculate() {
    for (const auto &link : surface_.Links()) RouteOf(*link);
}

void Routing::BringUpToDate(Link &link) {
    Judge(link);
    if (IsStale(link)) FindRoute(link);
}

void Routing::FindRoute(Link &link) {
    UpdateNodes();
    DropRoute(link);
    LinkData &data = DataOf(link);
    const bool untidies = !IsQuiet() && surface_.Actions().AreRecorded();
    if (untidies && nudged_.contains(link.Id())) former_.try_emplace(link.Id(), data.points);
    data.points = RouteOf(LinkDraft(link), data.ownBends);
    stale_.Remove(link.Id());
    NoteRoute(link);
    if (untidies) untidy_.push_back(link.Id());
}

void Routing::Reroute(Link &link) {
    if (!link.KeepsPoints()) stale_.Add(link.Id());
}

void Routing::SetPoints(Link &link, std::vector<Point> points) {
    if (!IsStale(link) && points == link.Data().points) return;
    surface_.WriteTo(link, Change::Geometry, [&] {
        const bool kept = link.KeepsPoints();
        LinkData &data = DataOf(link);
        DropRoute(link);
        data.points = std::move(points);
        data.ownBends = data.ownBends || !kept;
        kept ? stale_.Remove(link.Id()) : stale_.Add(link.Id());
        kept ? unjudged_.Add(link.Id()) : unjudged_.Remove(link.Id());
        mayBeUnjudged_ = mayBeUnjudged_ || kept;
    });
}

bool Routing::OwnBends(Link &link) {
    Settle();
    Judge(link);
    return link.Data().ownBends;
}

void Routing::TakeBendsAsRouted(Link &link) {
    unjudged_.Remove(link.Id());
    DataOf(link).ownBends = false;
}

// Points that came while the switch was on are judged among the nodes as they stand now; during a load only
// later, when all nodes stand.
void Routing::JudgeAfterSwitch(Link &link) {
    if (surface_.Loading() || !unjudged_.Has(link.Id())) return;
    Settle();
    Judge(link);
}

// Bends are the router's if it would give the same now. Nodes that have changed since the last Settle count
// as they were then. A polyline without bends counts as the user's and so stays straight: in older maps
// nothing went round nodes.
void Routing::Judge(Link &link) {
    if (!unjudged_.Has(link.Id()) || link.KeepsPoints()) return;
    unjudged_.Remove(link.Id());
    const std::vector<Point> &points = link.Data().points;
    DataOf(link).ownBends = points.size() > 2 ? !HasSameBends(points, RouteOf(LinkDraft(link), false))
                                              : HasForm(link.Style(), LinkForm::Polyline);
}

bool Routing::IsQuiet() const { return asTold_ > 0 || surface_.Loading(); }

void Routing::SettleAll() {
    if (!blocking_.empty()) UpdateRoutes();
    for (const ItemId id : std::exchange(blocking_, {})) {
        Node *node = surface_.FindNode(id);
        if (!node) continue;
        isBlocking_.Remove(id);
        if (!node->Hidden()) MakeWayFor(*node);
    }
    UpdateNodes();
    for (const ItemId id : std::exchange(moved_, {})) {
        Link *link = surface_.FindLink(id);
        if (!link || IsStale(*link) || link->KeepsPoints() || !HasRoutedBends(link->Data())) continue;
        const LinkDraft draft(*link);
        const RouteRequest request = RequestFor(draft);
        NeedNodes();
        if (IsMet(NodesAround(nodes_, draft, request), link->Data().points)) GiveWay(*link);
    }
}

void Routing::Keep() {
    for (const ItemId id : std::exchange(blocking_, {})) isBlocking_.Remove(id);
    moved_.clear();
}

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
    if (IsStale(link) || link.KeepsPoints() || link.Data().ownBends || !HasRoutedBends(link.Data()))
        return false;
    if (&link.Source() == &node || &link.Destination() == &node || IsCrowded(LinkDraft(link))) return false;
    const std::vector<Point> &route = link.Data().points;
    bool meets = false;
    for (std::size_t i = 1; i < route.size() && !meets; ++i)
        meets = Meets(node.Bounds(), ToQPointF(route[i - 1]), ToQPointF(route[i]), kNearness);
    return meets && !Overlap(node.Bounds(), link.Source().Bounds()) &&
           !Overlap(node.Bounds(), link.Destination().Bounds());
}

void Routing::GiveWay(Link &link) {
    Judge(link);
    if (link.Data().ownBends) return;
    const Uncounted derived(surface_.Actions());
    surface_.WriteTo(link, Change::Geometry, [&] {
        if (const auto displaced = displaced_.lock()) displaced->try_emplace(link.Id(), link.Data());
        stale_.Add(link.Id());
    });
}

void Routing::RespaceBeside(const Link &link, const ItemSet &going) {
    if (IsQuiet()) return;
    for (Link *other : LinksBeside(link)) {
        if (going.Has(other->Id()) || IsStale(*other) || other->KeepsPoints()) continue;
        GiveWay(*other);
    }
}

} // namespace diagram
