// Adds nodes without a drag.
#pragma once

#include <QPointF>
#include <QRectF>

namespace diagram {

class Node;
class Scene;

enum class Kin : unsigned char { Child, Sibling };

// The new node is as large as `from` and becomes the selection. A child stands behind the others in the
// direction in which the tree grows, or in `direction` (a unit vector along an axis) where `from` has no
// relatives; where the surface ends that way, on the other side. A sibling stands just behind `from` and has
// the same parent; without one it has no link. Siblings that are in the way go aside with all that they lead
// to, and so do those of the parents; where anything else is in the way, the nearest free place beside it is
// taken. The link has the style of those of its siblings. One step, with AfterMove for what went aside,
// AfterAddNode, AfterAddLink and AfterSelect. Null when a handler took the node away.
Node *AddKin(Scene &scene, Node &from, Kin kin, const QPointF &direction);

// A node without a link, of the usual size, in the middle of what is seen (twips) or on the nearest free
// place of the next column. One step, with AfterAddNode and AfterSelect. Null as above.
Node *AddNodeInMiddle(Scene &scene, const QRectF &seen);

} // namespace diagram
