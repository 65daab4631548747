// How long a map of many slices takes to every form in which it leaves the program.
#pragma once

#include "benchmarks/Figure.h"

namespace bench {

// A map of 200 slices to each form, beside the same files written plainly and flushed one by one.
Figures OutputFigures();

} // namespace bench
