// How often links cross in the hierarchical layout, beside the yardstick's.
#pragma once

#include "benchmarks/Figure.h"

namespace bench {

Figures LayoutCrossings();

} // namespace bench
