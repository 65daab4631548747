// How often links cross in the hierarchical layout, beside the yardstick's.
#pragma once

#include "benchmarks/Figure.h"

namespace bench {

// For LayoutFigures.
Figures LayoutCrossings();

} // namespace bench
