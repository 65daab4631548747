// A node of a chosen shape that a click or a drop places where the pointer is.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/NewNode.h"
#include "diagram/interaction/Snapping.h"

namespace diagram {

class Scene;
class Surface;

// A node of the usual size around the pointer, drawn to guides and to the grid like one that is moved; it
// stays on the surface.
class PlacedNode {
public:
    PlacedNode(Scene &scene, const Stage &stage, const PointerInput &input);

    // One step, with AfterAddNode and AfterSelect.
    void Add(int shape);
    // Shows how it would stand there.
    void Show(int shape, Overlay &overlay) const;

private:
    Surface &surface_;
    const Stage &stage_;
    Snapping snapping_;
    QRectF box_;
};

} // namespace diagram
