// When the routes of links are routed, round which nodes, and which links give way to a node.
//
// Routing is put off until a route is read. A node that comes, moves, grows or is shown again is noted;
// before the next route is read, and before a group of changes opens or closes, the links whose routes it now
// blocks are marked to be routed anew (Settle). Otherwise a node that changes affects no links but its own.
//
// A link is stale while its route must be worked out before it is read, and unjudged while nobody has found
// out whether its bends are the user's or the router's.
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
    // The route that the link of the draft would get among the nodes as they stand. Where the draft keeps its
    // points, these.
    std::vector<Point> RouteOf(const LinkDraft &link);
    // Brings every route up to date.
    void Recalculate();
    // Makes links give way to the nodes that have come, moved, grown or been shown since the last time.
    // Reading a route and opening or closing a group do so by themselves.
    void Settle() {
        if (!blocking_.empty() || !moved_.empty()) SettleAll();
    }
    // Takes all routes for right though nodes have changed since: those came back to where they stood.
    void Keep();

    // At the end of a group of changes: routes the links that it has touched; those that were routed in it
    // are nudged apart, with the links that share a side of a node or a channel with them.
    void Tidy(const std::vector<ItemId> &touched);
    // Instead of Tidy, when the group is given up.
    void ForgetUntidy() { untidy_.clear(), former_.clear(); }
    // Routes all links anew and nudges them apart. Their present routes don't matter, so that doing it again
    // changes nothing.
    void TidyAll();

    // Whether the bends are the user's. Of points that came from outside this is found out now.
    bool OwnBends(Link &link);
    // Whether the bends of the link are known to be the router's; false also while nobody has found out.
    bool AreBendsRouted(const Link &link) const { return !unjudged_.Has(link.Id()) && !link.Data().ownBends; }
    // The bends are the router's, whatever it would choose now: for a route that comes from a file.
    void TakeBendsAsRouted(Link &link);

    // With a point-edit switch on the points stay as given. Without, their bends are the user's from now on,
    // and the two ends come back to the outlines when the route is read.
    void SetPoints(Link &link, std::vector<Point> points);
    // The link is routed anew when its route is read, unless it keeps its points.
    void Reroute(Link &link);
    // Judges and routes the link as it is now, without making it give way to what has moved.
    void BringUpToDate(Link &link);
    // Finds out whether the bends are the user's, where that isn't known.
    void Judge(Link &link);
    // A point-edit switch of the link was turned.
    void JudgeAfterSwitch(Link &link);

    // Whether the link's values hold its route, and whose the bends are.
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
    void AfterOverwrite(SurfaceKey, Link &link); // the route written counts as right
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
    // Around a change of the node's box, or of whether it is hidden; before it goes.
    void BeforeNodeChange(Node &node);
    void AfterNodeChange(Node &node);
    void NoteRoute(Link &link); // it has got one
    void DropRoute(Link &link); // before its points are replaced, or it goes
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
    bool mayBeUnjudged_ = false;                  // false: certainly no link is
    std::vector<ChangedNode> changed_;            // not yet in the index as they are now
    std::vector<ItemId> fresh_;                   // links not yet in the index
    std::vector<ItemId> blocking_;                // nodes to which links haven't given way yet
    std::vector<ItemId> moved_;                   // links that may have been moved onto a node
    std::vector<ItemId> untidy_;                  // links that were routed in the open group
    std::map<ItemId, std::vector<Point>> former_; // the routes that they had before
    std::unordered_map<ItemId, Nudged> nudged_;
    std::weak_ptr<Displaced> displaced_; // of the trial that began last
    int asTold_ = 0;
};

// A gesture tries places for nodes. At each place the links that the nodes lie on give way, and those that
// gave way to the place before have their former routes back, so that no route depends on the places tried
// before. When the trial ends, the routes of the last place stay. Of several trials at once only the one that
// began last notes which links give way.
class Routing::Trial {
public:
    // The nodes that are moved, and the links whose routes are moved with them as they are.
    Trial(Surface &surface, std::vector<ItemId> nodes, std::vector<ItemId> links);

    // `move` puts the nodes, and the links that are moved as they are, to the next place. It returns false
    // where that is where they stood before the trial: then no link gives way. When it is called, all other
    // links have the routes that they had before the trial.
    void Move(const std::function<bool()> &move);
    // `restore` puts back what was moved; then all is as before the trial.
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
