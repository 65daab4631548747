// The part of a text that has room: whole lines, the last of which ends with an ellipsis.
#pragma once

#include "diagram/render/TextBlock.h"

namespace diagram {

// How many lines of the block, from the first on, end within `room` twips of its top. What a font leaves
// between lines may lie outside.
int WholeLines(const TextBlock &block, double room);
// Whether there is anything to read behind the first `lines` lines.
bool HasMoreThan(const TextBlock &block, int lines);

// The first `lines` lines (1 at least) of the block, which was laid out with that wrap and scale. With more
// to read behind them the last one gives up as many characters as its ellipsis needs.
TextBlock CutAfter(Faces &faces, const TextBlock &block, int lines, const WrapWidth &wrap, double scale);

// Where the ink of a line of the block lies, in twips below its base line.
struct InkSpan {
    double top, bottom;
};
InkSpan InkOf(const TextBlock &block, int line);

} // namespace diagram
