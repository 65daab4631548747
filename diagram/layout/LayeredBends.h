// Last step of the layered layout: where edges bend.
#pragma once

#include "diagram/layout/LayerChains.h"

#include <QPointF>

namespace diagram {

// From top to bottom of a layer.
struct LayerBand {
    double top = 0, bottom = 0;
};

// The bends of each edge of the part: at the top and bottom of the layers that it passes, and where it leaves
// the layers of its ends if it would meet another box there otherwise. So no edge meets a box.
std::vector<std::vector<QPointF>> BendsOf(const LayeredPart &part, const std::vector<LayoutEdge> &edges,
                                          const std::vector<double> &columns,
                                          const std::vector<LayerBand> &bands);

} // namespace diagram
