// The log of the writes to a surface, which makes undo and redo.
#pragma once

#include "diagram/model/Item.h"
#include "diagram/model/Link.h"
#include "diagram/model/Node.h"

namespace diagram {

struct SurfaceData;

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
    // A number for the content as far as steps made it; undo gives the former number back. Two states have
    // the same number only when no step between them changed what a map file keeps. Unique in the process.
    virtual std::uint64_t State() const = 0;
    virtual void SetState(std::uint64_t state) = 0; // only while the history is empty

    virtual void WillChange(const Node &) = 0;
    virtual void WillChange(const Link &) = 0;
    // Whether the log already has the link as it was before the open group.
    virtual bool Knows(const Link &) const = 0;
    // The links that the open group has changed or added, as far as it knows; some may be gone.
    virtual std::vector<ItemId> TouchedLinks() const = 0;
    virtual void WillChangeSurface(const SurfaceData &) = 0;
    virtual void Added(const Item &) = 0;
    virtual void WillRemove(const Item &) = 0;
};

} // namespace diagram
