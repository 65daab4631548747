// How a link of a surface is put to the router: its request, and the nodes in its way.
#pragma once

#include "diagram/model/BoxIndex.h"
#include "diagram/model/LinkDraft.h"
#include "diagram/shapes/Router.h"

#include <vector>

namespace diagram {

// Without obstacles, and keeping no bends.
RouteRequest RequestFor(const LinkDraft &link);

// The other links between the same two nodes, in the order of their identities. Empty when both nodes have so
// many links that these can't be told apart anyway.
std::vector<Link *> LinksBeside(const Link &link);

// Whether so many links end at one of its nodes that going round obstacles isn't worth the time.
bool IsCrowded(const LinkDraft &link);

// Whether the link must go round a node with that box. It needn't if the box overlaps that of one of its
// ends.
bool IsObstacleFor(const RouteRequest &request, const QRectF &box);

// Whether a piece of the route comes nearer than kNearness to one of the obstacles.
bool IsMet(const Obstacles &obstacles, const std::vector<Point> &route);

// The other nodes of the surface that are obstacles for the link. The router asks for the same places again
// and again: after some questions, areas are kept with what was found there.
class NodesAround : public Obstacles {
public:
    // `request` and `index` must outlive it and stay as they are.
    NodesAround(const BoxIndex &index, const LinkDraft &link, const RouteRequest &request);
    void In(const QRectF &area, std::vector<QRectF> &boxes) const override;
    void Along(const QPointF &from, const QPointF &to, double nearness, std::vector<QRectF> &boxes,
               std::size_t most = kAll) const override;

private:
    // An area with all of its obstacles.
    struct Known {
        QRectF area;
        std::vector<QRectF> boxes;
    };

    void Find(const QRectF &area, std::vector<QRectF> &boxes) const;
    bool IsInTheWay(const BoxIndex::Entry &entry) const;
    const Known &KnownAround(const QRectF &area) const;

    const BoxIndex &index_;
    ItemId source_, destination_;
    const RouteRequest &request_;
    mutable int asked_ = 0;
    mutable std::vector<Known> known_;
    mutable std::vector<BoxIndex::Entry> found_;
};

} // namespace diagram
