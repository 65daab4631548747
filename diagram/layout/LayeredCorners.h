// Last step of the layered layout for links of level and upright pieces.
#pragma once

#include "diagram/layout/LayeredBends.h"

namespace diagram {

// The corners of each edge that passes a layer, in pairs: it leaves its box upright, goes level between two
// layers, passes layers upright, and so on. Level pieces of different edges between the same layers don't lie
// on one another, nor in the middle, where those of short edges lie; ends are spread over their boxes. None
// for other edges.
std::vector<std::vector<QPointF>> CornersOf(const LayeredPart &part, const std::vector<LayoutEdge> &edges,
                                            const std::vector<double> &columns,
                                            const std::vector<LayerBand> &bands);

} // namespace diagram
