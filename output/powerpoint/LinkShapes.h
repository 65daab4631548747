// Links as connectors of a slide, with their heads and labels.
#pragma once

#include "output/powerpoint/NodeShapes.h"

namespace powerpoint {

// A link whose node isn't seen is no less a connector: it is glued at the other end.
void WriteLink(ShapeContext &context, const diagram::Link &link);

} // namespace powerpoint
