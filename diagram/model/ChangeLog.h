// Who listens to the writes of a surface: observers that keep derived data in step, and the one log that
// makes undo.
#pragma once

#include "diagram/model/Item.h"
#include "diagram/model/Link.h"
#include "diagram/model/Node.h"

namespace diagram {

struct SurfaceData;

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

// Told before each write. Groups nest: the outermost is the step.
class ChangeLog {
public:
    virtual ~ChangeLog() = default;
    virtual void Begin(std::int16_t code) = 0;
    // Opens a group that goes on with the last step. False, and nothing is opened, when there is none, some
    // can be repeated, or a group is open.
    virtual bool Continue() = 0;
    virtual void End() = 0;
    // Closes all open groups and takes back what was recorded in them; no step comes of it, and redo stays as
    // it was.
    virtual void Cancel() = 0;
    virtual int Depth() const = 0;    // open groups
    virtual bool CanUndo() const = 0; // false while a group is open
    virtual bool CanRedo() const = 0;
    virtual void Undo() = 0; // error 5 "Invalid procedure call or argument" while a group is open
    virtual void Redo() = 0;
    virtual void Forget() = 0; // empties the history
    // A number for the content as far as the steps made it: that after a step, until the step is taken back.
    // Two states have the same only when no step that made work lies between them. Unique in the process.
    virtual std::uint64_t State() const = 0;
    virtual void SetState(std::uint64_t state) = 0; // of an empty history

    virtual void WillChange(const Node &) = 0;
    virtual void WillChange(const Link &) = 0;
    // Whether the open group knows already how the link was before it.
    virtual bool Knows(const Link &) const = 0;
    // The links that the open group has changed or added, as far as it knows; some may be gone.
    virtual std::vector<ItemId> TouchedLinks() const = 0;
    virtual void WillChangeSurface(const SurfaceData &) = 0;
    virtual void Added(const Item &) = 0;
    virtual void WillRemove(const Item &) = 0;
};

} // namespace diagram
