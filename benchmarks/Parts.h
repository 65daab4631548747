// The parts of the table that measure by themselves. Each stands in a source of its name, but for
// WindowFigures, which shares its gestures with CanvasFigures.
#pragma once

#include "benchmarks/Figure.h"

namespace bench {

// From an event to the painted frame, on a view of 1280 x 800 pixels with about 200 nodes in sight.
Figures CanvasFigures();
// The same gestures in a window of the editor.
Figures WindowFigures();
// The bars and corners of a window while one works in a large slice.
Figures BarFigures();
// A whole diagram in sight, zoomed and panned, and the time until it is exact at rest.
Figures OverviewFigures();
// Undo and redo: their time up to the updated model, scene and index, and the memory of a long history.
Figures EditFigures();
// The journal of what isn't saved: what it takes from the event loop and from gestures, and how long a large
// map takes until it is kept.
Figures JournalFigures();
// The layered layout beside the engine alone, and the other layouts.
Figures LayoutFigures();
// How long a window answers no events while many nodes are laid out.
Figures SilenceFigures();
// How often routed links cross, beside the yardstick's on the same places.
Figures OrthoCrossings();
// Filter and search over 100,000 nodes in a window.
Figures WholeMapFigures();
// Every command on an empty and on a small map, up to the painted window; dialogs are answered at once.
Figures CommandFigures();
// From the question for a form to its painted window, in a map of 10,000 nodes.
Figures FormFigures();
// From the question for the preview to its first painted page, of 10,000 nodes on one page and on many.
Figures PrintFigures();
// A map of 200 slices in each form in which it leaves the program, beside the same files written plainly and
// flushed one by one.
Figures OutputFigures();
// The memory of the model with its scene.
Figures MemoryFigures();

} // namespace bench
