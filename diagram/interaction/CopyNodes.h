// Drags copies of the selected nodes to another place.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/HeldItems.h"
#include "diagram/interaction/Snapping.h"

namespace diagram {

// Until the release only outlines, and the lines between them, go with the pointer. The copies have no keys,
// come with the links between the copied nodes, and become the selection. They keep level, groups and look of
// what they are copies of: AfterAddNode, which gives a new node those of the filter, isn't raised. A node
// that isn't selected is copied alone. Without Ctrl it becomes a move.
class CopyNodes : public Gesture {
public:
    CopyNodes(Scene &scene, const Stage &stage, Node &pressed, const PointerInput &press);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override; // AfterMove with the copies selected, AfterSelect
    void Cancel() override {}
    void Show(Overlay &overlay) const override;
    Qt::CursorShape Pointer() const override { return Qt::DragCopyCursor; }
    bool GrowsThePage() const override { return true; }

private:
    QPointF Distance(const PointerInput &input);
    void SelectHeld() const;

    Scene &scene_;
    const Stage &stage_;
    PointerInput press_;
    ItemId pressed_;
    HeldItems held_;
    Snapping snapping_;
    QPainterPath outlines_; // where the nodes stand, twips
    QPainterPath links_;    // and the links between them
    QRectF extent_;
    QPointF corner_; // left top of the pressed node
    QPointF distance_;
};

} // namespace diagram
