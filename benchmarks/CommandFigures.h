// The figures of the commands, the automatic layouts, and what goes over a whole map.
#pragma once

#include "benchmarks/Figure.h"

namespace bench {

// The layered layout beside the engine alone, and trees.
Figures LayoutFigures();
// Filter and search over 100,000 nodes in a window.
Figures WholeMapFigures();
// How long the window does nothing else while many nodes are laid out.
Figures SilenceFigures();
// Every command on an empty and on a small map, up to the painted window; dialogs are answered at once.
Figures CommandFigures();

} // namespace bench
