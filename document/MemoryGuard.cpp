#include "document/MemoryGuard.h"

#include "settings/Settings.h"

namespace document {

namespace {
constexpr int kLimit = 80; // of the memory figure
constexpr unsigned kNodesPerLook = 512;
} // namespace

void ShowMemoryText(support::Desktop &desktop) {
    desktop.messageBoxes.Show(settings::Terms().MEMORYTEXT, support::Buttons::Ok, support::Icon::None,
                              QString());
}

bool MemoryGuard(support::Desktop &desktop) {
    // At exactly 80 a load stops (MemoryWatch below), but a command may still begin.
    if (support::MemoryFigure(desktop.memory.Read()) <= kLimit) return true;
    ShowMemoryText(desktop);
    return false;
}

bool MemoryWatch::IsShort() { return support::MemoryFigure(desktop_.memory.Read()) >= kLimit; }

bool MemoryWatch::IsShortForNode() { return nodes_++ % kNodesPerLook == 0 && IsShort(); }

} // namespace document
