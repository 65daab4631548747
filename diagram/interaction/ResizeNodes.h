// Resizes the selected nodes by one of the eight handles.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/HeldItems.h"
#include "diagram/interaction/Snapping.h"

#include <vector>

namespace diagram {

// Smallest side that a handle leaves, twips.
constexpr double kSmallestSide = 15;

// The box after handle `handle` (0 left top, then clockwise) was moved by `distance`. It doesn't turn over.
// `keepAspect` lets the side that changed more lead the other.
QRectF ResizedBox(const QRectF &box, int handle, const QPointF &distance, bool keepAspect);
// `box` resized by the same factors that made `after` out of `before`, the sides opposite to the handle kept
// in place.
QRectF ResizedInProportion(const QRectF &box, int handle, const QRectF &before, const QRectF &after);

// All selected nodes change by the factors of the one whose handle is dragged, and whose sides are drawn to
// guides and to the grid. Shift keeps its aspect; then nothing draws it but the grid. The page grows where a
// node reaches beyond its left or its top.
class ResizeNodes : public Gesture {
public:
    ResizeNodes(Scene &scene, const Stage &stage, Node &pressed, int handle, const PointerInput &press);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override; // AfterResize
    void Cancel() override;
    void Show(Overlay &overlay) const override;
    Qt::CursorShape Pointer() const override;
    bool GrowsThePage() const override { return true; }

protected:
    QRectF Box(const PointerInput &input);
    void Apply(const QRectF &box);

    Surface &surface_;
    PointerInput press_;
    HeldItems held_;
    ItemId pressed_;
    QRectF box_; // of the pressed node at the press

private:
    QPointF OnGrid(const QPointF &distance) const;

    Snapping snapping_;
    const Stage &stage_;
    QRectF shown_; // the pressed node's box after the last move
    int handle_;
};

// Moves the right or the bottom side of the selected nodes as one step, or as part of the last one where
// `goesOn`, with AfterResize: the one with the focus grows by `growth` (twips; one of x and y is 0), the
// others in proportion, as with the mouse. False when no node is selected.
bool ResizeSelection(Surface &surface, DayStrip &days, const QPointF &growth, bool goesOn = false);

// Which sides a handle moves: x -1 for the left one, 1 for the right one, y for top and bottom, 0 for none.
QPoint SidesOfHandle(int handle);
// The pointer shape for a handle.
Qt::CursorShape HandlePointer(int handle);
// The size of a node as the user reads it, in pixels at zoom 100.
QString SizeText(const QSizeF &twips);

} // namespace diagram
