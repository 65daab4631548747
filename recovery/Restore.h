// Puts what a journal kept into a window.
#pragma once

#include "recovery/ReadJournal.h"

namespace document {
class MapWindow;
}

namespace recovery {

// Replaces what the window holds by the map, as work that was not saved: it is dirty, and belongs to the file
// of the map, which may be gone or changed; saving then asks as ever. Embedded files that are no longer where
// they were are copied from `folder`, that of the journal, into that of the window.
void Restore(document::MapWindow &window, KeptMap map, const QString &folder);

} // namespace recovery
