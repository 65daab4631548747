// When the routes of links are routed, round which nodes, and which links give way to a node.
//
// Routing is put off until a route is read. A node that comes, moves, grows or is shown again is noted;
// before the next route is read, and before a group of changes opens or closes, the links whose routes it now
// blocks are made to be routed anew (Settle). Nothing else makes a way change that isn't the node's own.
#pragma once

#include "diagram/model/BoxIndex.h"
#include "diagram/model/ItemSet.h"
#include "diagram/model/Link.h"
#include "diagram/model/Node.h"
#include "diagram/model/SurfaceKey.h"

#include <functional>
#include <map>
#include <memory>
#include <unordered_map>
#include <vector>

namespace diagram {

class Obstacles;
class Surface;
struct LinkDraft;

// The two indices, of nodes and of routes, are built when they are first needed.
class Routing {
public:
    Routing(Surface &surface, SurfaceKey key) : surface_(surface), key_(key) {}

    // The route of the link, up to date.
    const std::vector<Point> &RouteOf(Link &link);
    // The route that a link would get among the nodes as they stand, without its being there. It stays as it
    // is while the points of the draft are kept.
    std::vector<Point> RouteOf(const LinkDraft &link);
    // Brings every route up to date.
    void Recalculate();
    // Makes links give way to the nodes that have come, moved, grown or been shown since the last time.
    // Reading a route and opening or closing a group do so by themselves.
    void Settle() {
        if (!blocking_.empty() || !moved_.empty()) SettleAll();
    }
    // Takes all routes as they are for right though nodes have changed: they came back to an earlier state.
    void Keep();

    // Routes what a group of changes has touched, and nudges the links that were routed in it, and what
    // shares a side or a channel with them, apart.
    void Tidy(const std::vector<ItemId> &touched);
    void ForgetUntidy() { untidy_.clear(), former_.clear(); }
    // The same of all links there are, from the routes that the router gives them: as they are now doesn't
    // matter, so that doing it again changes nothing.
    void TidyAll();

    // Whose the bends are: those that came from outside may be the router's own, or the user's, which is
    // found out now.
    bool OwnBends(Link &link);
    // Whether the bends of the link are known to be the router's; false also while nobody has found out.
    bool AreBendsRouted(const Link &link) const { return !unjudged_.Has(link.Id()) && !link.Data().ownBends; }
    // They are, whatever the router would choose now: told of a route that comes from a file.
    void TakeBendsAsRouted(Link &link);

    // With a point-edit switch on the points stay as given. Without, their bends are the user's from now on,
    // and the two ends come back to the outlines when the route is read.
    void SetPoints(Link &link, std::vector<Point> points);
    // The link is routed anew when its route is read, unless it keeps its points.
    void Reroute(Link &link);
    // Route and bends are known: of the link as it is now, without making it give way.
    void BringUpToDate(Link &link);
    void Judge(Link &link);
    // A point-edit switch of the link was turned.
    void JudgeAfterSwitch(Link &link);

    // Route and whose the bends are stand in the link's values as they are.
    bool IsKnown(const Link &link) const { return !IsStale(link) && !unjudged_.Has(link.Id()); }

    class Trial;
    class AsTold;
    // Whether there is a trial: something is being dragged.
    bool IsOnTrial() const { return !displaced_.expired(); }

    // What the surface tells of its writes.
    void NodeAdded(SurfaceKey, Node &node);
    void LinkAdded(SurfaceKey, Link &link);
    void BeforeWrite(SurfaceKey, Node &node, Change what);
    void AfterWrite(SurfaceKey, Node &node, Change what);
    void BeforeOverwrite(SurfaceKey, Link &link);
    void AfterOverwrite(SurfaceKey, Link &link); // the route is right as it was told
    void BeforeRemoval(SurfaceKey, const std::vector<Link *> &links, const std::vector<Node *> &nodes,
                       const ItemSet &going);
    // The other links between the same two nodes must be laid out anew: one comes between these, or goes.
    void RespaceBeside(SurfaceKey, const Link &link) { RespaceBeside(link, {}); }
    void Clear(SurfaceKey);

private:
    // The route that the router gave, and what became of it when it was nudged; sums of their points.
    struct Nudged {
        std::uint64_t routed = 0, route = 0;
    };
    struct ChangedNode {
        FloatBox before;
        ItemId id;
        bool stood; // it was an obstacle
    };
    using Displaced = std::map<ItemId, LinkData>; // the values of links before they gave way

    void FindRoute(Link &link);
    void NodeChanges(Node &node); // before its box changes, or it is hidden or shown, or goes
    void NodeChanged(Node &node); // after it
    void NoteRoute(Link &link);   // it has got one
    void DropRoute(Link &link);   // before its points are replaced, or it goes
    void RespaceBeside(const Link &link, const ItemSet &going);
    bool IsStale(const Link &link) const { return stale_.Has(link.Id()); }
    LinkData &DataOf(Link &link) const { return link.Data(key_); }

    void SettleAll();
    void NeedNodes();
    void UpdateNodes();
    void BuildNodes();
    void UpdateRoutes();
    void BuildRoutes();
    void JudgeAround(const Node &node);
    void MakeWayFor(const Node &node);
    void GiveWay(Link &link);
    bool IsBlockedBy(const Link &link, const Node &node) const;
    bool IsQuiet() const;
    bool MayNudge(Link &link);
    std::vector<Link *> LinksToNudge(const std::vector<ItemId> &untidy);
    void AddSideMates(const Link &link, std::vector<Link *> &found);
    void AddNear(const Link &link, double reach, std::vector<Link *> &found);
    void DrawStraight(Link &link);
    void NudgeApart(const std::vector<Link *> &links, const std::map<ItemId, std::uint64_t> &routed);
    void TakeRoute(Link &link, std::vector<Point> route);
    bool TakeFormerRoute(Link &link);
    void NoteNudged(const std::map<ItemId, std::uint64_t> &routed, const std::vector<Link *> &links);
    std::vector<Point> RouteOf(const LinkDraft &link, bool keepBends);

    Surface &surface_;
    SurfaceKey key_;
    BoxIndex nodes_, routes_;
    bool nodesBuilt_ = false, routesBuilt_ = false;
    // Of links: the route must be routed before it is read; whose the bends are isn't known yet; the route
    // stands in the index. Of nodes: the box in the index is out of date; links may have to make way for it.
    ItemSet stale_, unjudged_, indexed_, isChanged_, isBlocking_;
    bool mayBeUnjudged_ = false;                  // some link, perhaps
    std::vector<ChangedNode> changed_;            // not yet in the index as they are now
    std::vector<ItemId> fresh_;                   // links not yet in the index
    std::vector<ItemId> blocking_;                // nodes for which links must make way yet
    std::vector<ItemId> moved_;                   // links that must be looked at
    std::vector<ItemId> untidy_;                  // links that were routed in the open group
    std::map<ItemId, std::vector<Point>> former_; // the routes that they had before
    std::unordered_map<ItemId, Nudged> nudged_;
    std::weak_ptr<Displaced> displaced_; // of the trial that began last
    int asTold_ = 0;
};

// A gesture tries places for nodes: each time the links on which they lie give way, and those that gave way
// before have their former routes back, so that a route never depends on the places tried before. What was
// tried last stays when the trial ends. Of several at once the one that began last counts.
class Routing::Trial {
public:
    // The nodes that are moved, and the links whose routes are moved with them as they are.
    Trial(Surface &surface, std::vector<ItemId> nodes, std::vector<ItemId> links);

    // `move` starts from what stood before the trial, but for what it moves itself, and returns whether that
    // is elsewhere now.
    void Move(const std::function<bool()> &move);
    // `restore` puts back what was moved: all is as before the trial.
    void GiveUp(const std::function<void()> &restore);

private:
    void PutBack();

    Surface &surface_;
    std::vector<ItemId> nodes_, links_;
    std::shared_ptr<Displaced> displaced_;
};

// While one stands, everything is written as it is told: no link gives way or is laid out anew beside
// another, and what was written counts as right.
class Routing::AsTold {
public:
    explicit AsTold(Surface &surface);
    ~AsTold();
    AsTold(const AsTold &) = delete;
    AsTold &operator=(const AsTold &) = delete;

private:
    Routing &routing_;
};

using RouteTrial = Routing::Trial;
using RoutesAsTold = Routing::AsTold;

} // namespace diagram
