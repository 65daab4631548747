// Moves the selected nodes.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/HeldItems.h"

namespace diagram {

// With snapping on, the node that was pressed goes to the grid and the others keep their distance from it.
class MoveNodes : public Gesture {
public:
    MoveNodes(Surface &surface, Node &pressed, const PointerInput &press);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override; // AfterMove
    void Cancel() override;
    Qt::CursorShape Pointer() const override { return Qt::SizeAllCursor; }

private:
    QPointF Distance(const PointerInput &input) const;
    void Apply(const QPointF &distance);

    Surface &surface_;
    PointerInput press_;
    HeldItems held_;
    QPointF corner_; // left top of the pressed node at the press
};

// Moves the selection by the distance (twips) as one step, with AfterMove; false when no node is selected.
bool MoveSelection(Surface &surface, const QPointF &distance);

} // namespace diagram
