// When the routes of links are routed, round which nodes, and which links give way to a node.
//
// Routing is put off until a route is read. A node that comes, moves, grows or is shown again is noted;
// before the next route is read, and before a group of changes opens or closes, the links whose routes it now
// blocks are made to be routed anew (Settle). Nothing else makes a way change that isn't the node's own.
#pragma once

#include "diagram/model/BoxIndex.h"
#include "diagram/model/HeldRoutes.h"
#include "diagram/model/Link.h"
#include "diagram/model/Node.h"

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
    explicit Routing(Surface &surface) : surface_(surface) {}

    void NodeAdded(Node &node);
    void NodeChanges(Node &node);  // before its box changes, or it is hidden or shown, or goes
    void NodeChanged(Node &node);  // after it
    void LinkAdded(Link &link);    // or has got a route
    void RouteChanges(Link &link); // before its points are replaced, or it goes
    void Clear();

    // The other links between the same two nodes must be laid out anew: one came, or is about to go.
    void RespaceBeside(const Link &link);

    // Makes links give way; what is read then is up to date.
    void Settle() {
        if (!blocking_.empty() || !moved_.empty()) SettleAll();
    }
    // Takes the routes as they are for right, whatever has changed.
    void Keep();
    // Looks whether anything is in the way of that link.
    void Check(Link &link);

    void FindRoute(Link &link);
    // When a group of changes closes: routes the links that it touched, and nudges those that were routed in
    // it, and what shares a side or a channel with them, apart.
    void Tidy(const std::vector<ItemId> &touched);
    void ForgetUntidy() { untidy_.clear(), former_.clear(); }
    // The same of all links there are, from the routes that the router gives them: as they are now doesn't
    // matter, so that doing it again changes nothing.
    void TidyAll();
    // The route that the link would get now; nothing is changed.
    std::vector<Point> RouteOf(const LinkDraft &link);
    // Finds out whether bends that came from outside are the router's own, or the user's.
    void Judge(Link &link);
    // Whether the bends of the link are known to be the router's; false also while nobody has found out.
    static bool AreBendsRouted(const Link &link) { return !link.unjudged_ && !link.data_.ownBends; }
    // They are, whatever the router would choose now: told of a route that comes from a file.
    static void TakeBendsAsRouted(Link &link) { link.unjudged_ = link.data_.ownBends = false; }
    // From now on there may be links to judge.
    void NoteUnjudged() { unjudged_ = true; }

    // From now on the values of links that give way are kept in `held`, as long as it stands.
    void Hold(const std::shared_ptr<HeldRoutes> &held) { held_ = held; }
    bool IsHolding() const { return !held_.expired(); }
    // While on, writes bring their routes along: nothing gives way.
    void SetReplaying(bool on) { replaying_ = on; }

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
    BoxIndex nodes_, routes_;
    bool nodesBuilt_ = false, routesBuilt_ = false;
    std::vector<ChangedNode> changed_;            // not yet in the index as they are now
    std::vector<ItemId> fresh_;                   // links not yet in the index
    std::vector<ItemId> blocking_;                // nodes for which links must make way yet
    std::vector<ItemId> moved_;                   // links that must be looked at
    std::vector<ItemId> untidy_;                  // links that were routed in the open group
    std::map<ItemId, std::vector<Point>> former_; // the routes that they had before
    std::unordered_map<ItemId, Nudged> nudged_;
    std::weak_ptr<HeldRoutes> held_;
    bool replaying_ = false;
    bool unjudged_ = false; // perhaps
};

} // namespace diagram
