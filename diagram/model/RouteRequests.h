// What the router is asked for a link of a surface.
#pragma once

#include "diagram/model/BoxIndex.h"
#include "diagram/shapes/Router.h"

#include <vector>

namespace diagram {

class Link;
class Node;

// Without obstacles, and keeping no bends.
RouteRequest RequestFor(const Link &link);

// The links between the same two nodes as that one, itself included, in the order of their identities. Empty
// when both nodes are crowded: more would lie there than can be told apart.
std::vector<Link *> LinksBeside(const Link &link);

// Whether so many links end at one of its nodes that going round others would help nobody.
bool IsCrowded(const Link &link);

// A node in which an end of the link lies, or that reaches into that end's box, is none of its obstacles.
bool IsObstacleFor(const RouteRequest &request, const QRectF &box);

// Whether the level and upright pieces of the way come near to one of the obstacles.
bool IsMet(const Obstacles &obstacles, const std::vector<Point> &way);

// The other nodes of the surface, as far as they are obstacles.
class NodesAround : public Obstacles {
public:
    // `request` and `index` must outlive it.
    NodesAround(const BoxIndex &index, const Link &link, const RouteRequest &request)
        : index_(index), link_(link), request_(request) {}
    void In(const QRectF &area, std::vector<QRectF> &boxes) const override;

private:
    const BoxIndex &index_;
    const Link &link_;
    const RouteRequest &request_;
    mutable std::vector<BoxIndex::Entry> found_;
};

} // namespace diagram
