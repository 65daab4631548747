// Which gesture is going on, from idle to press to drag and back.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/Press.h"

#include <memory>

namespace diagram {

class Interaction {
public:
    // Both must live longer.
    Interaction(Scene &scene, Stage &stage) : scene_(scene), stage_(stage) {}

    // A second press while a gesture lasts is passed over. A gesture led by keys follows the pointer from the
    // press on, and ends with the release.
    void Press(const PointerInput &input);
    void PressToPan(const PointerInput &input);
    // Follows the pointer; when idle, notes what is below it and tells what a drag from there would do.
    void Move(const PointerInput &input);
    void Release(const PointerInput &input);
    // Takes a bend away. Raises DblClick, but not on a handle or a bend, nor with Ctrl or Shift: the two
    // clicks meant these. True when the text of what is selected is to be edited now: of a node from which
    // nothing leads elsewhere, or of the one that it puts on the empty page.
    bool DoubleClick(const PointerInput &input);
    // Starts a gesture that is led by keys, unless another one goes on; null starts none.
    bool Begin(std::unique_ptr<Gesture> gesture);
    // A key for it; Enter ends it with what it has come to.
    void Key(const KeyInput &input);
    // Gives the gesture up; false when there is none.
    bool Cancel();
    // A modifier key went up or down, which may mean something for a press to come.
    void NoteModifiers(Qt::KeyboardModifiers modifiers);
    // The pointer has left the surface.
    void Leave();
    // Shows how large the node is, when no gesture shows anything else; kNoItem ends it.
    void ShowSizeOf(ItemId node) { sized_ = node; }

    bool IsActive() const { return gesture_ != nullptr; }
    bool TakesKeys() const { return gesture_ && gesture_->TakesKeys(); }
    // What the user is at while keys lead, and the keys that lead on.
    Attention LooksAt() const { return gesture_ ? gesture_->LooksAt() : Attention(); }
    Hint WhatNow() const { return gesture_ ? gesture_->WhatNow() : Hint::Nothing; }
    // Whether the gesture waits for the answer to an offer.
    bool IsOffer() const { return gesture_ && gesture_->IsOffer(); }
    bool IsPanning() const { return gesture_ && gesture_->MovesTheView(); }
    bool ScrollsAtEdges() const { return gesture_ && gesture_->ScrollsAtEdges(); }
    bool GrowsThePage() const { return gesture_ && gesture_->GrowsThePage(); }
    // What the gesture shows, or, while idle, the node below the pointer and where a click would place one.
    Overlay Show() const;
    Qt::CursorShape Pointer() const;

private:
    void Hover(const HeldHit &hit, const PointerInput &input);
    // What a press would do where the pointer is.
    Hint HintHere() const;
    void ShowPlace(Overlay &overlay) const;
    void Finish(const PointerInput &input);
    bool OpensText(const HeldHit &hit, const PointerInput &input);
    bool IsNear(ItemId node, const PointerInput &input) const;

    Scene &scene_;
    Stage &stage_;
    std::unique_ptr<Gesture> gesture_;
    HeldHit hover_;
    ItemId shown_ = kNoItem; // the node that shows where links start
    ItemId sized_ = kNoItem; // and the one that shows its size
    PointerInput hoverInput_;
    Hint told_ = Hint::Nothing;
    bool over_ = false; // the pointer is over the surface
    bool held_ = false; // a button is held while keys lead the gesture
};

} // namespace diagram
