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
// Whether the node is large enough to start a link at its middle.
bool ShowsLinkStart(const Node &node, const PointerInput &input);
// What the left button acts on: an item that isn't selectable counts as empty surface.
HeldHit HitFor(Scene &scene, const PointerInput &input);

// Selects an unselected item at once, so that a drag takes it along. A click selects only that item, Ctrl
// toggles it, Shift adds it, and on empty surface it selects nothing; then Click is raised.
class Press : public Gesture {
public:
    Press(Scene &scene, Stage &stage, const PointerInput &press);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override;
    void Cancel() override {}
    bool ScrollsAtEdges() const override { return false; }

private:
    Scene &scene_;
    Stage &stage_;
    PointerInput press_;
    HeldHit hit_;
};

} // namespace diagram
