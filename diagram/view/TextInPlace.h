// The editing of a text in its place on the surface.
#pragma once

#include "diagram/interaction/EditText.h"
#include "diagram/view/InPlaceEditor.h"

#include <optional>
#include <QPointer>

namespace diagram {

class Scene;
class SurfaceGuard;
class SurfaceView;
class Viewport;

// All that it is handed must live longer.
class TextInPlace {
public:
    TextInPlace(SurfaceView &view, Scene &scene, const Viewport &viewport, SurfaceGuard &guard);

    // Nothing may be edited yet. `typed` takes the place of the text. False for a text that is too long.
    bool Begin(Item &item, const QString *typed);
    // What was typed is written, and the typing goes on.
    void Keep();
    void End(bool keep);
    // After a scroll, a zoom or a change of the item; ends when its text has no place any more.
    void Place();

    // Null while nothing is edited.
    InPlaceEditor *Editor() const { return editor_; }
    // Whether the event that is still running has ended an editing: a press elsewhere, say.
    bool HasJustEnded() const { return justEnded_; }
    // The item, and what would be written; none when that is what it has.
    std::optional<std::pair<ItemId, QString>> Typed() const;

private:
    SurfaceView &view_;
    Scene &scene_;
    const Viewport &viewport_;
    SurfaceGuard &guard_;
    QPointer<InPlaceEditor> editor_;
    std::optional<EditText> edit_;
    bool justEnded_ = false;
};

} // namespace diagram
