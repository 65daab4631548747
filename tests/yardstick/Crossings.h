// How often links cross, bend and lead through boxes, however they were laid out.
#pragma once

#include "diagram/layout/Layered.h"

namespace yardstick {

// Of each edge, as straight pieces from where it comes from on; none for an edge from a box to itself.
using Ways = std::vector<std::vector<QPointF>>;

Ways RoutesOf(const diagram::LayoutGraph &graph, const diagram::LayeredDrawing &drawing);

// Of links without a common node.
int CrossingsOf(const diagram::LayoutGraph &graph, const Ways &routes);

int BendsOf(const Ways &routes);

// Of links with a box that is at neither of their ends.
int MeetingsOf(const diagram::LayoutGraph &graph, const std::vector<QPointF> &centres, const Ways &routes);

} // namespace yardstick
