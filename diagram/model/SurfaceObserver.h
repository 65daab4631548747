// Who listens to the writes of a surface, to keep derived data in step.
#pragma once

#include "diagram/model/Item.h"

namespace diagram {

// Told after each write, at once and outside of groups too. An observer must not write to the model.
class SurfaceObserver {
public:
    virtual ~SurfaceObserver() = default;
    virtual void ItemAdded(Item &) {}
    virtual void ItemChanged(Item &, Change) {}
    // The item still stands, but is in no collection any more.
    virtual void ItemRemoved(Item &) {}
    virtual void SurfaceChanged(Change) {} // Text: texts are measured by another rule now
    // All content was replaced or removed at once; forget every item.
    virtual void Cleared() {}
    // Before a step is taken back or repeated. The one place where an observer writes to the model: what it
    // has written for the time being, outside of groups, must be taken back now.
    virtual void BeforeUndo() {}
    // The step has been taken back or repeated.
    virtual void AfterUndo() {}
};

} // namespace diagram
