// Draws a node by dragging on empty surface.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/model/Surface.h"

namespace diagram {

// The node gets the surface's defaults and becomes the selection. A drag too small to be a node selects
// nothing. Shift keeps it as wide as high.
class DrawNode : public Gesture {
public:
    DrawNode(Surface &surface, const PointerInput &press);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override; // AfterAddNode, AfterSelect
    void Cancel() override {}
    void Show(Overlay &overlay) const override;
    Qt::CursorShape Pointer() const override { return Qt::CrossCursor; }

private:
    QRectF Box(const PointerInput &input) const;

    Surface &surface_;
    PointerInput press_;
    QRectF box_;
};

} // namespace diagram
