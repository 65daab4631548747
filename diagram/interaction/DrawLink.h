// Draws a link by dragging from beside a node to another.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/LooseEnd.h"

namespace diagram {

// The link gets the surface's defaults and becomes the selection. Dropped on empty surface it gives nothing.
// A pointer that went some way off and comes back links the node to itself.
class DrawLink : public Gesture {
public:
    DrawLink(Scene &scene, Stage &stage, Node &source, const PointerInput &press);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override; // AfterAddLink, AfterSelect
    void Cancel() override {}
    void Show(Overlay &overlay) const override;
    Qt::CursorShape Pointer() const override { return Qt::CrossCursor; }

private:
    Node *Target(const PointerInput &input) const;

    Scene &scene_;
    Stage &stage_;
    ItemId source_;
    LooseEnd end_;
    ItemId target_ = kNoItem;
    QPainterPath line_; // that the link would have, twips
    PointerInput press_;
    bool wentOff_ = false;
};

} // namespace diagram
