// What lies under a point of a surface.
#pragma once

#include <QPointF>

namespace diagram {

class Scene;
class Node;
class Link;

enum class HitKind : unsigned char {
    Nothing,
    Node,      // inside the outline
    LinkStart, // beside a selectable node, where a link is dragged from; `index`: 0 above, clockwise
    Handle,    // one of the eight handles of a selected node; `index`: 0 left top, clockwise
    Link,      // a segment of a link; `index` is the segment
    LinkLabel,
    Bend,         // a point of a selected link; `index` is the point
    SegmentHandle // the middle of a segment of a selected link, where a bend is made; `index` is the segment
};

struct Hit {
    HitKind kind = HitKind::Nothing;
    diagram::Node *node = nullptr;
    diagram::Link *link = nullptr;
    int index = -1;
};

struct HitOptions {
    double tolerance = 90;   // twips around lines
    double handleSize = 105; // side of a handle in twips; divide by the zoom
    bool handles = true;     // look at handles and bends at all
    bool linkStarts = true;  // and at the places where links start; not without handles
};

// The topmost thing under `point` (twips). Handles come first; a place where links start lies above links and
// below nodes. Of several links the nearest is hit. A link is hit before a node below it only on the line
// itself, or where it joins nodes inside of that node. What is hidden or can't be selected is passed over, so
// that what lies below it is hit.
Hit HitTest(Scene &scene, const QPointF &point, const HitOptions &options = {});

// The topmost visible node whose outline holds the point; null for none.
Node *NodeAtPoint(Scene &scene, float x, float y);
// The topmost of those that can be selected.
Node *SelectableNodeAt(Scene &scene, const QPointF &point);
// The nearest visible link within the tolerance of the point, the topmost of several; null for none.
Link *LinkAtPoint(Scene &scene, float x, float y, double tolerance = 90);

} // namespace diagram
