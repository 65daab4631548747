// Nodes that are added where the pointer is.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/NewNode.h"
#include "diagram/interaction/Snapping.h"

namespace diagram {

class DayStrip;
class Scene;
class Surface;

// Adds a node with the surface's defaults, but in that shape where one is given, and makes it the selection;
// AfterAddNode. The page grows where it must. The caller opens the group.
void AddNodeIn(Surface &surface, DayStrip &days, const QRectF &box, std::optional<int> shape);

// A node of the usual size around the pointer, drawn to guides and to the grid like one that is moved; it
// stays on the surface.
class PlacedNode {
public:
    PlacedNode(Scene &scene, const Stage &stage, const PointerInput &input);

    // One step, with AfterAddNode and AfterSelect.
    void Add(int shape);
    // How it would stand there.
    void Show(int shape, Overlay &overlay) const;

private:
    Surface &surface_;
    const Stage &stage_;
    Snapping snapping_;
    QRectF box_;
};

} // namespace diagram
