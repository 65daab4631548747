// Draws a link by dragging from beside a node to another.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/LooseEnd.h"

namespace diagram {

// The link gets the surface's defaults and becomes the selection. It keeps to the side it was pulled from
// (0 above, clockwise) as long as that is free. Over empty surface with room for a node one is shown at the
// link's end, and offered when the link is dropped there; dropped elsewhere beside the nodes it gives
// nothing. A pointer that went some way off and comes back links the node to itself.
class DrawLink : public Gesture {
public:
    DrawLink(Scene &scene, Stage &stage, Node &source, int side, const PointerInput &press);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override; // AfterAddLink, AfterSelect
    void Cancel() override {}
    void Show(Overlay &overlay) const override;
    Qt::CursorShape Pointer() const override { return Qt::CrossCursor; }

private:
    Node *Target(const PointerInput &input) const;
    QRectF RoomAt(const PointerInput &input) const; // for a new node, twips; empty for none

    Scene &scene_;
    Stage &stage_;
    ItemId source_;
    LooseEnd end_;
    ItemId target_ = kNoItem;
    QPainterPath line_; // that the link would have, twips
    QRectF room_;       // for a new node at its end
    PointerInput press_;
    bool wentOff_ = false; // the pointer, some way from the press
};

} // namespace diagram
