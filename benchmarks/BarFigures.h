// What the bars and corners of a window cost while one works in a large slice.
#pragma once

#include "benchmarks/Figure.h"

namespace bench {

Figures BarFigures();

} // namespace bench
