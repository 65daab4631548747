// Whether the machine has memory left for another map.
#pragma once

#include "support/Desktop.h"

namespace document {

// For the commands that open a map: true as long as the memory figure is at most 80; otherwise shows the
// product's message.
bool MemoryGuard(support::Desktop &desktop);

// For a load. Asking the platform costs more than loading a node, so within a slice it is asked only at the
// first and then at every 512th node.
class MemoryWatch {
public:
    explicit MemoryWatch(support::Desktop &desktop) : desktop_(desktop) {}
    // Before a slice: true when the figure is 80 or more.
    bool IsShort();
    // Before a node.
    bool IsShortForNode();

private:
    support::Desktop &desktop_;
    unsigned nodes_ = 0;
};

// The product's message for a machine without memory, without a title.
void ShowMemoryText(support::Desktop &desktop);

} // namespace document
