// The connectors with right angles that PowerPoint has (bentConnector2 to 5, ECMA-376 part 1, annex D).
#pragma once

#include <optional>
#include <QPointF>
#include <QRectF>
#include <vector>

namespace powerpoint {

// One of them, as its element tells it. The start lies at the left and top of `box` and the route leaves to
// the right, before it is flipped and turned about the middle.
struct BentConnector {
    int segments = 0; // 2 to 5
    QRectF box;
    bool flipH = false, flipV = false;
    bool turned = false;      // by a quarter, clockwise
    std::vector<int> adjusts; // 1/100000 of the width and the height in turn
};

// The connector of that route, whose segments are level and plumb in turn; none for another route.
std::optional<BentConnector> FindBentConnector(const std::vector<QPointF> &route);

} // namespace powerpoint
