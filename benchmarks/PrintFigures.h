// How long pages take.
#pragma once

#include "benchmarks/Figure.h"

namespace bench {

// From the question for the preview to its first painted page, of 10,000 nodes on one page and on many.
Figures PrintFigures();

} // namespace bench
