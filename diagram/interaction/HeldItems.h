// Nodes, with the links attached to them and those that give way to them, as they were when a gesture began.
#pragma once

#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"

#include <functional>
#include <memory>
#include <vector>

namespace diagram {

struct HeldNode {
    ItemId id;
    NodeData data;
};

struct HeldLink {
    ItemId id;
    LinkData data;
    bool inner; // both ends are held nodes
};

// Keeps values, not pointers: an item that is gone meanwhile is passed over.
class HeldItems {
public:
    // The nodes and every link that is attached to one of them.
    explicit HeldItems(const std::vector<Node *> &nodes);
    // A single link.
    explicit HeldItems(Link &link);

    const std::vector<HeldNode> &Nodes() const { return nodes_; }
    const std::vector<HeldLink> &Links() const { return links_; }
    // Union of the boxes of the nodes, twips.
    QRectF Extent() const;

    // Everything as it was.
    void Restore(Surface &surface) const;
    void RestoreLinks(Surface &surface) const;
    // Tries a place: `place` moves or resizes the nodes and returns whether that is elsewhere than they were.
    // Ends of links whose points aren't routed go with their nodes; the bends that the user made, and the
    // routes of links that give way, follow from what was before, never from the place tried last.
    void Try(Surface &surface, const std::function<bool()> &place) const;
    // Everything where it was, moved by the distance (twips); the links that lead away follow.
    void MoveBy(Surface &surface, const QPointF &distance) const;
    // The same for nodes beside a strip of days, whose quiet links to their days go along: the ends on the
    // days only by `alongTheStrip`, the part of the distance that leads along the strip (twips).
    void MoveWithDateLinks(Surface &surface, const QPointF &distance, const QPointF &alongTheStrip) const;

private:
    const HeldNode *FindHeld(ItemId id) const;
    void RestoreBends(Surface &surface) const;
    void TakeKeptEndsAlong(Surface &surface) const;
    // Gives the links between held nodes their routes at the start, moved as a whole (twips).
    void MoveInnerLinks(Surface &surface, const QPointF &distance) const;
    void TakeDateLinksAlong(Surface &surface, const QPointF &distance, const QPointF &alongTheStrip) const;

    std::vector<HeldNode> nodes_;
    std::vector<HeldLink> links_;
    std::unique_ptr<RouteTrial> trial_; // null without nodes
};

} // namespace diagram
