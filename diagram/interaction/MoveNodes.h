// Moves the selected nodes.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/HeldItems.h"
#include "diagram/interaction/Snapping.h"

namespace diagram {

// The selection as a whole is drawn to guides; with none near and the grid on, the node that was pressed goes
// to the grid and the others keep their distance from it. Shift keeps the move on one axis; with Ctrl it
// becomes a copy, and with Alt a node with a date goes along its strip of days; where nodes stay at their
// dates it does so without Alt. The page grows where a node is dropped beyond its left or its top.
class MoveNodes : public Gesture {
public:
    MoveNodes(Scene &scene, const Stage &stage, Node &pressed, const PointerInput &press);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override; // AfterMove
    void Cancel() override;
    void Show(Overlay &overlay) const override { snapping_.Show(overlay); }
    Qt::CursorShape Pointer() const override { return Qt::SizeAllCursor; }
    bool GrowsThePage() const override { return true; }

private:
    QPointF Distance(const PointerInput &input);

    Scene &scene_;
    const Stage &stage_;
    Surface &surface_;
    PointerInput press_;
    ItemId pressed_;
    HeldItems held_;
    Snapping snapping_;
    QRectF extent_;  // of all of them at the press
    QPointF corner_; // left top of the pressed node at the press
};

// Moves the selection by the distance (twips) as one step, or as part of the last one where `goesOn`, with
// AfterMove; the page grows as above, and nodes that stay at their dates settle. False when no node is
// selected.
bool MoveSelection(Surface &surface, DayStrip &days, const QPointF &distance, bool goesOn = false);

} // namespace diagram
