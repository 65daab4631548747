// One step of undo that is taken back unless it is carried to its end.
#pragma once

#include "diagram/model/Actions.h"
#include "diagram/model/Surface.h"
#include "document/Tags.h"

namespace document {

class UndoStep {
public:
    // Opens a group of changes on the surface, which must outlive the object.
    explicit UndoStep(diagram::Surface &surface) : surface_(surface) { BeginAction(surface_); }
    // Takes back all changes of a step that was not closed.
    ~UndoStep() {
        if (!closed_) surface_.Actions().Cancel();
    }
    UndoStep(const UndoStep &) = delete;
    UndoStep &operator=(const UndoStep &) = delete;

    // Keeps the changes. Not to be called twice.
    void Close() {
        surface_.EndAction();
        closed_ = true;
    }

private:
    diagram::Surface &surface_;
    bool closed_ = false;
};

} // namespace document
