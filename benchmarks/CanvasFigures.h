#pragma once

#include "benchmarks/Figure.h"

namespace bench {

// From an event to the painted frame, on a view of 1280 x 800 pixels with about 200 nodes in sight.
Figures CanvasFigures();
// The same gestures in a real window.
Figures WindowFigures();
// A whole diagram in sight, zoomed and panned, and the time until it is exact at rest.
Figures OverviewFigures();

} // namespace bench
