// The diagram on which most figures are taken: a grid of boxes in four shapes and six colours, and 1.3 links
// a node to near neighbours, with two bends each.
#pragma once

#include "diagram/model/Surface.h"

namespace bench {

// Twips: the distance from box to box, and their size.
constexpr double kPitchX = 104 * 15, kPitchY = 72 * 15;
constexpr double kBoxWidth = 68 * 15, kBoxHeight = 36 * 15;

// Columns of the grid for so many nodes.
int Columns(int nodes);
// Fills an empty surface. The same for the same number of nodes.
void FillSample(diagram::Surface &surface, int nodes);

} // namespace bench
