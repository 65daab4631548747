// One step of undo for what a handler does.
#pragma once

#include "diagram/model/Surface.h"
#include "document/Tags.h"

namespace mainwindow {

// An undo group with a code of its own, closed whatever happens: one that an error left open would swallow
// all that the user does afterwards.
class ActionGroup {
public:
    // The surface must outlive the object.
    explicit ActionGroup(diagram::Surface &surface) : surface_(surface) { document::BeginAction(surface); }
    ~ActionGroup() { surface_.EndAction(); }
    ActionGroup(const ActionGroup &) = delete;
    ActionGroup &operator=(const ActionGroup &) = delete;

private:
    diagram::Surface &surface_;
};

} // namespace mainwindow
