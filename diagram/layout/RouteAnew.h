// All ways anew.
#pragma once

namespace diagram {

class Surface;

// Takes the ways of all links as if they had just been drawn, in their order; links whose bends are the
// user's, or whose points are being edited, keep theirs. Gives the number of those that have another way now.
// Opens no group.
int RouteAnew(Surface &surface);

} // namespace diagram
