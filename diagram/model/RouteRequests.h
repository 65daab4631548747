// What the router is asked for a link of a surface.
#pragma once

#include "diagram/model/BoxIndex.h"
#include "diagram/model/LinkDraft.h"
#include "diagram/shapes/Router.h"

#include <vector>

namespace diagram {

// Without obstacles, and keeping no bends.
RouteRequest RequestFor(const LinkDraft &link);

// The other links between the same two nodes, in the order of their identities. Empty when both nodes are
// crowded: more would lie there than can be told apart.
std::vector<Link *> LinksBeside(const Link &link);

// Whether so many links end at one of its nodes that going round others would help nobody.
bool IsCrowded(const LinkDraft &link);

// A node in which an end of the link lies, or that reaches into that end's box, is none of its obstacles.
bool IsObstacleFor(const RouteRequest &request, const QRectF &box);

// Whether the pieces of the route come near to one of the obstacles.
bool IsMet(const Obstacles &obstacles, const std::vector<Point> &route);

// The other nodes of the surface, as far as they are obstacles. Asked again and again for the same places,
// as the router does in a search, it looks into the index once for each.
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
