// All routes anew.
#pragma once

namespace diagram {

class Surface;

// Takes the routes of all links as if they had just been drawn, all in one step: what they were before
// doesn't matter, so that doing it again changes nothing. Links whose bends are the user's, or whose points
// are being edited, keep theirs. Gives the number of those that have another route now. Opens no group.
int RouteAnew(Surface &surface);

} // namespace diagram
