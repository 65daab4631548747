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

    // A second press while a gesture lasts is passed over.
    void Press(const PointerInput &input);
    void PressToPan(const PointerInput &input);
    // Follows the pointer; when idle, notes what is below it and tells what a drag from there would do.
    void Move(const PointerInput &input);
    void Release(const PointerInput &input);
    // Takes a bend away, and raises DblClick.
    void DoubleClick(const PointerInput &input);
    // Gives the gesture up; false when there is none.
    bool Cancel();
    // The pointer has left the surface.
    void Leave() { Hover({}, {}); }

    bool IsActive() const { return gesture_ != nullptr; }
    bool IsPanning() const { return gesture_ && gesture_->MovesTheView(); }
    bool ScrollsAtEdges() const { return gesture_ && gesture_->ScrollsAtEdges(); }
    Overlay Show() const;
    Qt::CursorShape Pointer() const;

private:
    void Hover(const HeldHit &hit, const PointerInput &input);
    bool IsNear(ItemId node, const PointerInput &input) const;

    Scene &scene_;
    Stage &stage_;
    std::unique_ptr<Gesture> gesture_;
    HeldHit hover_;
    ItemId shown_ = kNoItem; // the node that shows where links start
    PointerInput hoverInput_;
    Hint told_ = Hint::Nothing;
};

} // namespace diagram
