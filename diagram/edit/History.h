// Undo and redo: groups of recorded changes.
#pragma once

#include <cstddef>

namespace diagram {

class Surface;

// Gives the surface a history of its own. At the end of a group the changes are reduced to the properties
// whose value differs; a group without any is no step. Undo refers to items by identity: an item that is gone
// by then is passed over, and properties that were written outside of groups since stay as they are.
void AttachHistory(Surface &surface);

// A group of changes that is open as long as the object lives. With `goesOn` its changes become part of the
// last step, where there is one to go on with.
class ActionGroup {
public:
    explicit ActionGroup(Surface &surface, bool goesOn = false);
    ~ActionGroup();
    ActionGroup(const ActionGroup &) = delete;
    ActionGroup &operator=(const ActionGroup &) = delete;

private:
    Surface &surface_;
};

} // namespace diagram
