// The connectors with right angles that PowerPoint has (bentConnector2 to 5, ECMA-376 part 1, annex D).
#pragma once

#include <optional>
#include <QPointF>
#include <QRectF>
#include <vector>

namespace powerpoint {

// One of them, as its element describes it: the route begins at the left top corner of `box` and leaves to
// the right; then it is flipped and turned about the middle of the box.
struct BentConnector {
    int segments = 0; // 2 to 5
    QRectF box;
    bool flipH = false, flipV = false;
    bool turned = false;      // by a quarter, clockwise
    std::vector<int> adjusts; // 1/100000 of the width and the height in turn
};

// The connector of a route (EMU) whose two to five segments are horizontal and vertical in turn; none for any
// other.
std::optional<BentConnector> FindBentConnector(const std::vector<QPointF> &route);

} // namespace powerpoint
