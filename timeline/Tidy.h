// What keeps a strip to the months that it needs, and makes it whole.
#pragma once

namespace diagram {
class Surface;
} // namespace diagram
namespace document {
class MapWindow;
}

namespace timeline {

// Both open no group of changes, and lay the strip out where they change it.

// Takes the months away that no dated node stands on, with their days; where missing months are added, those
// between the first and the last that are needed stay. Gives how many went.
int TidyTimeline(document::MapWindow &window, diagram::Surface &Flow);

// Adds the months that are missing between the first and the last, at most kMostCreated, and has missing
// months added from now on; nothing where none is missing. Gives how many came.
int FillInMissingMonths(document::MapWindow &window, diagram::Surface &Flow);

} // namespace timeline
