// One step of undo for what a handler does.
#pragma once

#include "diagram/model/Actions.h"
#include "diagram/model/Surface.h"
#include "document/Tags.h"

#include <exception>

namespace mainwindow {

// A group of changes that is closed whatever happens: one that an error left open would take in all that the
// user does afterwards. An error cancels the group, unless it is nested in another one. A
// diagram::ActionGroup keeps what was changed before an error, and has no random code
// (document::BeginAction).
class HandlerStep {
public:
    // The surface must outlive the object. `goesOn`: continues the last step where that is possible.
    explicit HandlerStep(diagram::Surface &surface, bool goesOn = false)
        : surface_(surface), isNested_(surface.Actions().AreRecorded()) {
        if (!goesOn || !surface.Actions().Continue()) document::BeginAction(surface);
    }
    ~HandlerStep() {
        if (std::uncaught_exceptions() > exceptions_ && !isNested_)
            surface_.Actions().Cancel();
        else
            surface_.EndAction();
    }
    HandlerStep(const HandlerStep &) = delete;
    HandlerStep &operator=(const HandlerStep &) = delete;

    // Takes back what was changed so far, when the user has given up. Not for a nested step.
    void TakeBack() { surface_.Actions().Cancel(); }

private:
    diagram::Surface &surface_;
    bool isNested_;
    int exceptions_ = std::uncaught_exceptions();
};

} // namespace mainwindow
