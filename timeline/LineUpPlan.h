// Where nodes stand that keep to their dates: values in, values out. All in twips; "along" is the strip's
// direction, "across" the other one.
#pragma once

#include "timeline/RowPlan.h"

#include <optional>
#include <QRectF>
#include <vector>

namespace timeline {

// On which sides of the strip nodes stand.
enum class Sides {
    Behind, // the strip lies at the beginning of the surface
    Before, // it lies at the end of what is seen; what stands wholly beyond it stays there
    Both    // each stays on its own
};

struct StripOnSurface {
    StripEdges edges;
    bool rightwards = true;
    Sides sides = Sides::Behind;
};

// Where a bar begins and ends, along.
struct Stretch {
    double begin = 0, end = 0;
};

struct DatedBox {
    QRectF box;
    double centre = 0; // of its day, along
    int lane = 0;
    bool gives = false;           // came or moved last
    std::optional<Stretch> bar{}; // instead of the centre: it is as long as that
    double beside = 0;            // along, room that its text takes behind the bar
};

struct LineUpTask {
    StripOnSurface strip;
    std::vector<DatedBox> nodes;
    std::vector<BarLink> links;   // by positions among the nodes
    std::vector<QRectF> others{}; // what stays where it is, and has to be left free
};

// The new box of each node: its centre on that of its day, as far as the surface's edge allows, a bar from
// its beginning to its end, and rows as PlanRows gives them. Of the others those that hold one of the nodes
// are a ground under them and not left free. What finds no room between the strip and the surface's edge goes
// to the other side. A box that needn't move is given back as it is.
std::vector<QRectF> PlanLineUp(const LineUpTask &task, RowOrder order);

} // namespace timeline
