// Going from node to node by direction.
#pragma once

#include <QPointF>

namespace diagram {

class Node;

// The visible, selectable node that lies nearest to `from` in the direction (a unit vector along an axis),
// what lies off to the side counting as farther; null when nothing lies that way.
Node *NeighbourTowards(const Node &from, const QPointF &direction);
// The same among the nodes at the other ends of its links.
Node *LinkedTowards(const Node &from, const QPointF &direction);

} // namespace diagram
