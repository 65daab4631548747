// Draws a node by dragging on empty surface.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/Snapping.h"
#include "diagram/model/Surface.h"

namespace diagram {

// The node gets the surface's defaults, but the shape that the stage wants drawn, and becomes the selection.
// A drag too small to be a node selects nothing. Its corners are drawn to guides and to the grid; Shift keeps
// it as wide as high, and then nothing draws the corner that moves but the grid. The page grows where it
// reaches beyond its left or its top.
class DrawNode : public Gesture {
public:
    DrawNode(Scene &scene, const Stage &stage, const PointerInput &press);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override; // AfterAddNode, AfterSelect
    void Cancel() override {}
    void Show(Overlay &overlay) const override;
    Qt::CursorShape Pointer() const override { return Qt::CrossCursor; }
    bool GrowsThePage() const override { return true; }

private:
    QPointF FarCorner(const QPointF &from, const PointerInput &input);
    QRectF Box(const PointerInput &input);

    Surface &surface_;
    const Stage &stage_;
    PointerInput press_;
    Snapping snapping_;
    std::optional<int> shape_;
    QRectF box_;
};

} // namespace diagram
