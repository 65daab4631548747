#include "diagram/interaction/GrowPage.h"

#include "diagram/model/DayStrip.h"
#include "diagram/model/Routing.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/model/Surface.h"

#include <algorithm>
#include <cmath>

namespace diagram {

namespace {

constexpr double kStep =
    150; // twips, where nothing snaps to the grid; as far apart as the usual grid's lines

// How far something that now begins at `now` is to be moved; `before` is where it began.
double Missing(double now, double before, double step) {
    return now < std::min(0.0, before) ? std::ceil(-now / step) * step : 0;
}

LinkData Shifted(const Link &link, float dx, float dy) {
    link.OwnBends(); // known before its nodes move
    LinkData data = link.Data();
    for (Point &point : data.points) point = {point.x + dx, point.y + dy};
    return data;
}

} // namespace

void ShiftAll(Surface &surface, float dx, float dy) {
    surface.Routes().Recalculate();
    surface.Routes().Settle();
    const RoutesAsTold told(surface);
    std::vector<LinkData> links;
    for (const auto &link : surface.Links()) links.push_back(Shifted(*link, dx, dy));
    for (Node &node : surface.Nodes()) {
        NodeData data = node.Data();
        data.left += dx;
        data.top += dy;
        surface.Overwrite(node, std::move(data));
    }
    for (std::size_t i = 0; i < links.size(); ++i)
        surface.Overwrite(*surface.Links()[i], std::move(links[i]));
}

bool ShiftOntoPage(Surface &surface, const QRectF &dropped, const QRectF &former) {
    const double step = surface.Screen().SnapToGrid() ? double(surface.Screen().GridSize()) : kStep;
    const auto right = float(Missing(dropped.left(), former.left(), step));
    const auto down = float(Missing(dropped.top(), former.top(), step));
    if (right == 0 && down == 0) return false;
    ShiftAll(surface, right, down);
    surface.PageGrown(right, down);
    return true;
}

void GrowPage(Surface &surface, DayStrip &days, const QRectF &dropped, const QRectF &former) {
    if (ShiftOntoPage(surface, dropped, former)) days.Arrange(surface);
}

} // namespace diagram
