// One step of undo for what a handler does.
#pragma once

#include "diagram/model/Actions.h"
#include "diagram/model/Surface.h"
#include "document/Tags.h"

#include <exception>

namespace mainwindow {

// An undo group with a code of its own, closed whatever happens: one that an error left open would swallow
// all that the user does afterwards. What an error ends is taken back, unless it is a part of a larger step.
class ActionGroup {
public:
    // The surface must outlive the object. `goesOn`: one step with the last one, where that can be gone on
    // with.
    explicit ActionGroup(diagram::Surface &surface, bool goesOn = false)
        : surface_(surface), isPart_(surface.Actions().AreRecorded()) {
        if (!goesOn || !surface.Actions().Continue()) document::BeginAction(surface);
    }
    ~ActionGroup() {
        if (std::uncaught_exceptions() > exceptions_ && !isPart_)
            surface_.Actions().Cancel();
        else
            surface_.EndAction();
    }
    ActionGroup(const ActionGroup &) = delete;
    ActionGroup &operator=(const ActionGroup &) = delete;

    // The user gave up: the surface is as it was before. Not for a part of a larger step.
    void TakeBack() { surface_.Actions().Cancel(); }

private:
    diagram::Surface &surface_;
    bool isPart_;
    int exceptions_ = std::uncaught_exceptions();
};

} // namespace mainwindow
