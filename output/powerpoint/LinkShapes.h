// Links as connectors of a slide, with their heads and labels.
#pragma once

#include "output/powerpoint/NodeShapes.h"

namespace powerpoint {

// At a node that isn't seen the connector isn't glued.
void WriteLink(ShapeContext &context, const diagram::Link &link);

} // namespace powerpoint
