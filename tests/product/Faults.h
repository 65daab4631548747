// What is to be mended in a drawing that is handed out.
#pragma once

#include <QStringList>

namespace diagram {
class Surface;
}

namespace tests {

// A sentence for each of: a text that is cut off, or covered by what stands on its frame; nodes that overlap
// without one being a frame around the other; a link or its text across a node that it doesn't join, but for
// the quiet line to a day that runs behind it; a node off the grid of ten pixels that isn't kept at its date;
// a drawing that needs more than a landscape page (A4 at zoom 100).
QStringList FaultsOf(diagram::Surface &surface);

} // namespace tests
