// How often routed links cross, beside the yardstick's on the same places.
#pragma once

#include "benchmarks/Figure.h"

namespace bench {

Figures OrthoCrossings();

} // namespace bench
