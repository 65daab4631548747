// How long forms take to open.
#pragma once

#include "benchmarks/Figure.h"

namespace bench {

// From the question for a form to its painted window, in a map of 10,000 nodes.
Figures FormFigures();

} // namespace bench
