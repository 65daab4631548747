// Pens, brushes and regions from what records say of them.
#pragma once

#include "vector/player/MetafileState.h"

namespace vector {

class RecordFields;

// `style` holds line, ends and joins in one ([MS-EMF] 2.1.25); the colour as a record has it.
QPen PenOf(std::uint32_t style, double width, std::uint32_t colour);
QBrush BrushOf(std::uint32_t style, std::uint32_t colour, std::uint32_t hatch);
MetafileFont FontOf(int height, int tenthsOfDegree, int weight);

} // namespace vector
