// The figures of the journal of what isn't saved.
#pragma once

#include "benchmarks/Figure.h"

namespace bench {

// What it takes from the event loop and from gestures, and how long a large map takes until it is kept.
Figures JournalFigures();

} // namespace bench
