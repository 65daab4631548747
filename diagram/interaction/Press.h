// A press of the left button of which it isn't known yet whether a click or a drag follows.
#pragma once

#include "diagram/hit/HitTest.h"
#include "diagram/interaction/Gesture.h"
#include "diagram/model/Item.h"

namespace diagram {

class Surface;

// What was hit, by identity: handlers of events may remove items while the button is down.
struct HeldHit {
    HitKind kind = HitKind::Nothing;
    ItemId node = kNoItem;
    ItemId link = kNoItem;
    int index = -1;
};

// How large things are to the pointer, independent of the zoom.
HitOptions OptionsFor(const PointerInput &input);
// What the left button acts on.
HeldHit HitFor(Scene &scene, const PointerInput &input);
// Whether a drag from the empty surface selects instead of drawing.
bool DragsABand(const Surface &surface, const PointerInput &input);
// The pointer shape over what was hit, pressed or not; `band`: a drag from the empty surface selects.
Qt::CursorShape PointerOver(const HeldHit &hit, bool band);
// What a drag from there would do, or a click, in words for the user.
Hint HintOver(const HeldHit &hit, const Surface &surface, const Stage &stage);

// Selects an unselected item at once, so that a drag takes it along. A click selects only that item, Ctrl
// toggles it, Shift adds it, and on empty surface it selects nothing, or places a node of the shape that was
// chosen for new ones; then Click is raised. A click on the place where a link starts is one on the link that
// runs through it, if any, else on the node.
class Press : public Gesture {
public:
    Press(Scene &scene, Stage &stage, const PointerInput &press);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override;
    void Cancel() override {}
    Qt::CursorShape Pointer() const override { return PointerOver(hit_, band_); }
    bool ScrollsAtEdges() const override { return false; }

private:
    bool Places() const;

    Scene &scene_;
    Stage &stage_;
    PointerInput press_;
    HeldHit hit_;
    bool band_;
};

} // namespace diagram
