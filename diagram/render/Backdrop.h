// What lies below the diagram: back colour, picture, grid.
#pragma once

#include "diagram/render/Paint.h"

namespace diagram {

void PaintBackdrop(Paint &paint);

} // namespace diagram
