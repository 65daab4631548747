// One thing that the user does with the pointer, from press to release.
#pragma once

#include "diagram/interaction/Attention.h"
#include "diagram/interaction/Hint.h"
#include "diagram/interaction/KeyInput.h"
#include "diagram/interaction/Overlay.h"
#include "diagram/interaction/PointerInput.h"
#include "diagram/model/DayStrip.h"

#include <memory>
#include <optional>

namespace diagram {

class Gesture;

// What gestures ask of the screen.
class Stage {
public:
    virtual ~Stage() = default;
    // Pixels that the viewport's left top corner lies away from the surface's origin.
    virtual QPointF ScrollOffset() const = 0;
    virtual void SetScrollOffset(const QPointF &pixels) = 0;
    virtual QRectF Seen() const = 0; // of the surface, twips
    // Scrolls so that the area (twips) is seen.
    virtual void EnsureVisible(const QRectF &area) = 0;
    // Tells the user something in passing, as a status bar does.
    virtual void Tell(Hint hint) = 0;
    // The same where nothing else is being told.
    virtual void Offer(Hint hint) { Tell(hint); }
    // The shape that was chosen for new nodes; none where they get the surface's defaults alone.
    virtual std::optional<int> ShapeToDraw() const { return {}; }
    // Whether a click on the empty surface adds a node of that shape.
    virtual bool ClickPlacesShape() const { return ShapeToDraw().has_value(); }
    // Asks the user, where the pointer is, whether to commit the gesture; until the answer it goes on as one
    // that keys lead.
    virtual void Ask(std::unique_ptr<Gesture> gesture);
    // Begins to edit the text of what is selected.
    virtual void EditText() {}
    // The strip of days to which the surface's nodes belong by their dates.
    virtual DayStrip &Days() const { return DayStrip::None(); }
};

// A gesture computes from the state at the press and the whole distance, never from the last input. It ends
// in exactly one of Commit and Cancel, or hands over to another gesture in Move. Nothing that it writes
// before Commit is a step of undo, and Cancel leaves the model as it was at the press. It keeps items by
// their ids: an item that is gone is passed over.
class Gesture {
public:
    virtual ~Gesture() = default;
    // Null to go on; or the gesture that takes over, which is then given the same input.
    virtual std::unique_ptr<Gesture> Move(const PointerInput &input) = 0;
    // One group of changes with its event; nothing at all when nothing came of it.
    virtual void Commit(const PointerInput &input) = 0;
    virtual void Cancel() = 0;
    virtual void Show(Overlay &) const {}
    virtual Qt::CursorShape Pointer() const { return Qt::ArrowCursor; }
    // Whether the view goes with the pointer, as while panning.
    virtual bool MovesTheView() const { return false; }
    // Whether the surface scrolls when the pointer comes to the edge of the viewport.
    virtual bool ScrollsAtEdges() const { return true; }
    // Whether what goes beyond the left or the top of the page makes the page grow.
    virtual bool GrowsThePage() const { return false; }

    // Led by keys: it starts without the pointer, which means something to it only while a button is held.
    // Enter commits it, Escape gives it up; every other key comes to it.
    virtual bool TakesKeys() const { return false; }
    virtual void Key(const KeyInput &) {}
    virtual Hint WhatNow() const { return Hint::Nothing; } // the keys that lead on
    virtual Attention LooksAt() const { return {}; }
    // Whether it waits for the answer to an offer; a press of the pointer is a no.
    virtual bool IsOffer() const { return false; }
};

// Without a user to ask nothing is committed.
inline void Stage::Ask(std::unique_ptr<Gesture> gesture) { gesture->Cancel(); }

} // namespace diagram
