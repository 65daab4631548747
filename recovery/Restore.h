// Puts the map of a journal into a window.
#pragma once

#include "recovery/ReadJournal.h"

namespace document {
class MapWindow;
}

namespace recovery {

// Replaces what the window holds by the map, as unsaved work: Dirty is true. Database is the map's file,
// which may be gone or changed meanwhile; saving asks about that as usual. Embedded files that are gone or
// changed are copied from `folder`, which is the journal's, into the window's own folder.
void Restore(document::MapWindow &window, KeptMap map, const QString &folder);

} // namespace recovery
