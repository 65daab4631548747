// Going from node to node by direction.
#pragma once

#include <QPointF>

namespace diagram {

class Link;
class Node;
class Surface;
struct KeyInput;

// The visible, selectable node that lies nearest to `from` in the direction (a unit vector along an axis),
// what lies off to the side counting as farther, most of all what isn't level with it; null when nothing lies
// that way.
Node *NeighbourTowards(const Node &from, const QPointF &direction);
// The same among the nodes at the other ends of its links.
Node *LinkedTowards(const Node &from, const QPointF &direction);
// The visible, selectable node whose middle lies nearest to that of `from`; null when there is no other.
Node *NearestNode(const Node &from);

// The node to which a key leads: Tab and Shift+Tab in reading order, an arrow to the neighbour, with Ctrl+Alt
// along a link. Without a node to start from Tab begins at the ends. Null when nothing lies that way, and for
// other keys.
Node *NodeByKey(const Surface &surface, const Node *from, const KeyInput &input);

// The visible, selectable link of the node that follows `from` (step 1) or goes before it (step -1), round
// again behind the last; the first or last when `from` is null or no link of it. Null when it has none.
Link *NextLinkOf(const Node &node, const Link *from, int step);
// The node at that end of the link which lies further in the direction.
Node &EndTowards(const Link &link, const QPointF &direction);

} // namespace diagram
