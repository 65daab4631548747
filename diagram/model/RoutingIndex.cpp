// The indices of nodes and routes: what is out of date in them, and how it is brought up to date.
#include "diagram/model/Actions.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"
#include "diagram/model/SurfaceObservers.h"
#include "diagram/shapes/RouterLanes.h"

#include <algorithm>

namespace diagram {

namespace {

constexpr std::size_t kFew = 64; // changes that are made one by one whatever the number of items

bool AreMany(std::size_t changes, const BoxIndex &index) {
    return changes > kFew && changes > index.Size() / 4;
}

FloatBox BoxOf(const Node &node) {
    const NodeData &data = node.Data();
    return {data.left, data.top, data.left + data.width, data.top + data.height};
}

// Months and days of a strip of dates are no obstacles: links cross them. They are marked and can't be
// selected from the beginning, while they still have no size.
bool IsRuler(const Node &node) { return node.Marked() && !node.Selectable(); }

bool IsObstacle(const Node &node) { return !node.Hidden() && !IsRuler(node) && BoxOf(node).HasInside(); }

FloatBox BoxOf(const std::vector<Point> &route) {
    FloatBox box{route[0].x, route[0].y, route[0].x, route[0].y};
    for (const Point &point : route) {
        box.left = std::min(box.left, point.x), box.right = std::max(box.right, point.x);
        box.top = std::min(box.top, point.y), box.bottom = std::max(box.bottom, point.y);
    }
    return box;
}

} // namespace

// What is noted of the identity is forgotten first: undo brings a node back under the one that it had.
void Routing::NodeAdded(SurfaceKey, Node &node) {
    isChanged_.Remove(node.Id()), isBlocking_.Remove(node.Id());
    if (!nodesBuilt_ && IsQuiet()) return;
    isChanged_.Add(node.Id());
    changed_.push_back({{}, node.Id(), false});
    AfterNodeChange(node);
}

void Routing::BeforeNodeChange(Node &node) {
    if (blocking_.empty() && nodesBuilt_) UpdateNodes();
    if (!isChanged_.Has(node.Id()) && IsObstacle(node)) JudgeAround(node);
    if (isChanged_.Add(node.Id())) changed_.push_back({BoxOf(node), node.Id(), IsObstacle(node)});
}

// Links that may go round the node are judged while it still stands where it does.
void Routing::JudgeAround(const Node &node) {
    if (!mayBeUnjudged_ || IsQuiet() || changed_.size() >= kFew) return;
    UpdateRoutes();
    constexpr double kReach = 2 * kClearance;
    std::vector<BoxIndex::Entry> found;
    routes_.Find(node.Bounds().adjusted(-kReach, -kReach, kReach, kReach), found);
    for (const BoxIndex::Entry &entry : found)
        if (Link *link = surface_.FindLink(entry.second)) Judge(*link);
}

void Routing::AfterNodeChange(Node &node) {
    if (!IsQuiet() && isBlocking_.Add(node.Id())) blocking_.push_back(node.Id());
}

void Routing::LinkAdded(SurfaceKey, Link &link) {
    AfterOverwrite(key_, link);
    NoteRoute(link);
    RespaceBeside(link, {});
}

// A link without points has no route yet.
void Routing::AfterOverwrite(SurfaceKey, Link &link) {
    unjudged_.Remove(link.Id());
    link.Data().points.size() < 2 ? stale_.Add(link.Id()) : stale_.Remove(link.Id());
}

void Routing::BeforeOverwrite(SurfaceKey, Link &link) { DropRoute(link); }

void Routing::NoteRoute(Link &link) {
    indexed_.Remove(link.Id());
    if (routesBuilt_) fresh_.push_back(link.Id());
}

void Routing::DropRoute(Link &link) {
    if (!routesBuilt_ || !indexed_.Remove(link.Id())) return;
    routes_.Remove(BoxOf(link.Data().points), link.Id());
    fresh_.push_back(link.Id());
    if (!AreMany(fresh_.size(), routes_)) return;
    routesBuilt_ = false;
    routes_.Clear();
    fresh_ = {};
}

void Routing::BeforeRemoval(SurfaceKey, const std::vector<Link *> &links, const std::vector<Node *> &nodes,
                            const ItemSet &going) {
    for (Link *link : links) {
        DropRoute(*link);
        if (!going.Has(link->Source().Id()) && !going.Has(link->Destination().Id()))
            RespaceBeside(*link, going);
    }
    for (Node *node : nodes) BeforeNodeChange(*node);
}

// The node's links are routed and recorded before it moves.
void Routing::BeforeWrite(SurfaceKey, Node &node, Change what) {
    if (!Has(what, Change::Geometry | Change::Visibility)) return;
    if (Has(what, Change::Geometry)) {
        for (Link *link : node.Links()) {
            Judge(*link);
            if (!link->KeepsPoints()) surface_.Actions().WillChange(key_, *link);
        }
    }
    BeforeNodeChange(node);
}

void Routing::AfterWrite(SurfaceKey, Node &node, Change what) {
    if (!Has(what, Change::Geometry | Change::Visibility)) return;
    if (Has(what, Change::Geometry)) {
        for (Link *link : node.Links()) {
            if (link->KeepsPoints()) continue;
            stale_.Add(link->Id());
            surface_.Observers().ItemChanged(*link, Change::Geometry);
        }
    }
    AfterNodeChange(node);
}

void Routing::Clear(SurfaceKey) {
    nodes_.Clear(), routes_.Clear();
    nodesBuilt_ = routesBuilt_ = false;
    changed_ = {}, fresh_ = {}, blocking_ = {}, moved_ = {}, untidy_ = {};
    former_.clear(), nudged_.clear();
    for (ItemSet *set : {&stale_, &unjudged_, &indexed_, &isChanged_, &isBlocking_}) set->Clear();
    mayBeUnjudged_ = false;
}

void Routing::NeedNodes() {
    if (!nodesBuilt_) BuildNodes();
}

// With the nodes as they were before the changes that are noted.
void Routing::BuildNodes() {
    std::vector<BoxIndex::Entry> entries;
    for (const Node &node : surface_.Nodes())
        if (!isChanged_.Has(node.Id()) && IsObstacle(node)) entries.emplace_back(BoxOf(node), node.Id());
    for (const ChangedNode &node : changed_)
        if (node.stood) entries.emplace_back(node.before, node.id);
    nodes_.Build(entries);
    nodesBuilt_ = true;
}

void Routing::UpdateNodes() {
    if (changed_.empty()) return;
    const std::vector<ChangedNode> changed = std::exchange(changed_, {});
    const bool anew = !nodesBuilt_ || AreMany(changed.size(), nodes_);
    for (const ChangedNode &entry : changed) {
        // A node that went and came back has two entries; the first one puts it into the index.
        Node *node = surface_.FindNode(entry.id);
        const bool first = node && isChanged_.Remove(entry.id);
        if (anew) continue;
        if (entry.stood) nodes_.Remove(entry.before, entry.id);
        if (first && IsObstacle(*node)) nodes_.Insert(BoxOf(*node), entry.id);
    }
    if (anew) nodesBuilt_ = false, nodes_.Clear();
}

void Routing::BuildRoutes() {
    std::vector<BoxIndex::Entry> entries;
    fresh_.clear();
    for (const auto &link : surface_.Links()) {
        if (IsStale(*link)) {
            indexed_.Remove(link->Id());
            continue;
        }
        indexed_.Add(link->Id());
        entries.emplace_back(BoxOf(link->Data().points), link->Id());
    }
    routes_.Build(entries);
    routesBuilt_ = true;
}

// Links that are still to be routed come in when they are.
void Routing::UpdateRoutes() {
    if (!routesBuilt_) return BuildRoutes();
    for (const ItemId id : std::exchange(fresh_, {})) {
        Link *link = surface_.FindLink(id);
        if (!link || IsStale(*link) || !indexed_.Add(id)) continue;
        routes_.Insert(BoxOf(link->Data().points), id);
    }
}

} // namespace diagram
