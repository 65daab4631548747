#pragma once

#include "benchmarks/Figure.h"

namespace bench {

// Undo and redo: their time up to the updated model, scene and index, and what a long history weighs.
Figures EditFigures();

} // namespace bench
