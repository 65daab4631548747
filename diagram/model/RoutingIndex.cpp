// The indices of nodes and routes, and what of them is out of date.
#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"
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

// Nodes of a strip are a ruler that links cross: they are marked and can't be selected from the moment at
// which they come, without a size.
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

void Routing::NodeAdded(Node &node) {
    if (!nodesBuilt_ && IsQuiet()) return;
    node.changed_ = true;
    changed_.push_back({{}, node.Id(), false});
    NodeChanged(node);
}

void Routing::NodeChanges(Node &node) {
    if (blocking_.empty() && nodesBuilt_) UpdateNodes();
    if (!node.changed_ && IsObstacle(node)) JudgeAround(node);
    if (std::exchange(node.changed_, true)) return;
    changed_.push_back({BoxOf(node), node.Id(), IsObstacle(node)});
}

// Those that may have gone round the node are judged while it stands there.
void Routing::JudgeAround(const Node &node) {
    if (!unjudged_ || IsQuiet() || changed_.size() >= kFew) return;
    UpdateRoutes();
    constexpr double kReach = 2 * kClearance;
    std::vector<BoxIndex::Entry> found;
    routes_.Find(node.Bounds().adjusted(-kReach, -kReach, kReach, kReach), found);
    for (const BoxIndex::Entry &entry : found)
        if (Link *link = surface_.FindLink(entry.second)) Judge(*link);
}

void Routing::NodeChanged(Node &node) {
    if (IsQuiet() || std::exchange(node.blocks_, true)) return;
    blocking_.push_back(node.Id());
}

void Routing::LinkAdded(Link &link) {
    link.indexed_ = false;
    if (routesBuilt_) fresh_.push_back(link.Id());
}

void Routing::RouteChanges(Link &link) {
    if (!routesBuilt_ || !std::exchange(link.indexed_, false)) return;
    routes_.Remove(BoxOf(link.data_.points), link.Id());
    fresh_.push_back(link.Id());
    if (!AreMany(fresh_.size(), routes_)) return;
    routesBuilt_ = false;
    routes_.Clear();
    fresh_ = {};
}

void Routing::Clear() {
    nodes_.Clear(), routes_.Clear();
    nodesBuilt_ = routesBuilt_ = false;
    changed_ = {}, fresh_ = {}, blocking_ = {}, moved_ = {}, untidy_ = {};
    former_.clear(), nudged_.clear();
    unjudged_ = false;
}

void Routing::NeedNodes() {
    if (!nodesBuilt_) BuildNodes();
}

// As they were before the changes.
void Routing::BuildNodes() {
    std::vector<BoxIndex::Entry> entries;
    for (const Node &node : surface_.Nodes())
        if (!node.changed_ && IsObstacle(node)) entries.emplace_back(BoxOf(node), node.Id());
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
        // One that went and came back has two entries.
        Node *node = surface_.FindNode(entry.id);
        const bool first = node && std::exchange(node->changed_, false);
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
        link->indexed_ = !link->stale_;
        if (link->indexed_) entries.emplace_back(BoxOf(link->data_.points), link->Id());
    }
    routes_.Build(entries);
    routesBuilt_ = true;
}

// Links that are still to be routed come in when they are.
void Routing::UpdateRoutes() {
    if (!routesBuilt_) return BuildRoutes();
    for (const ItemId id : std::exchange(fresh_, {})) {
        Link *link = surface_.FindLink(id);
        if (!link || link->stale_ || std::exchange(link->indexed_, true)) continue;
        routes_.Insert(BoxOf(link->data_.points), id);
    }
}

} // namespace diagram
