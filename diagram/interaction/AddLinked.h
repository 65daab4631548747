// Adds nodes without a drag.
#pragma once

#include <QPointF>
#include <QRectF>

namespace diagram {

class Node;
class Scene;

// The new node is as large as `from`, stands beside it in the direction (a unit vector along an axis), on the
// nearest free place of the next column or row, and becomes the selection. Where the surface ends that way it
// stands on the other side. One step, with AfterAddNode, AfterAddLink and AfterSelect. Null when a handler
// took the node away.
Node *AddLinkedNode(Scene &scene, Node &from, const QPointF &direction);

// A node without a link, of a common size, in the middle of what is seen (twips) or on the nearest free place
// of the next column. One step, with AfterAddNode and AfterSelect. Null as above.
Node *AddNodeInMiddle(Scene &scene, const QRectF &seen);

} // namespace diagram
