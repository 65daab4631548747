// The tree in which a node stands by its links: parents lead to their children. Only what is seen and can be
// selected counts, so that the strip of days is no part of it.
#pragma once

#include <optional>
#include <QPointF>
#include <vector>

namespace diagram {

class Link;
class Node;

// The first link that leads to the node from another one; null for none.
Link *LinkFromParent(const Node &node);
Node *ParentOf(const Node &node);
// The links to other nodes, to each of them once, in the order in which they were added.
std::vector<Link *> LinksToChildren(const Node &node);
// The node with all that it leads to, each once, so that links in a circle end the walk. What `taken` holds
// is left out; what is given is added to it.
std::vector<Node *> SubtreeOf(Node &node, std::vector<const Node *> &taken);

// Where `to` lies as seen from `from`: a unit vector along the axis on which the wider gap is between them.
QPointF DirectionTo(const Node &from, const Node &to);
// Whether `to` lies wholly on that side of `from`.
bool IsBeyond(const Node &from, const Node &to, const QPointF &direction);
// Where the tree grows at the node: to the side on which most of its children lie, or on from its parent; a
// unit vector along an axis, none without either.
std::optional<QPointF> GrowthAt(const Node &node);
// Where it grows at the parent, as far as the child is concerned.
QPointF GrowthTowards(const Node &parent, const Node &child);

} // namespace diagram
