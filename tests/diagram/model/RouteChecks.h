// What tests of routes look at, and surfaces for them.
#pragma once

#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/Obstacles.h"
#include "tests/diagram/model/RandomSurface.h"

#include <map>
#include <string>

namespace diagram::testing {

using RoutesById = std::map<ItemId, std::vector<Point>>;

inline RoutesById AllRoutes(const Surface &surface) {
    RoutesById routes;
    for (const auto &link : surface.Links()) routes[link->Id()] = link->Route();
    return routes;
}

// For messages.
inline std::string Text(const Link &link) {
    QString text = QStringLiteral("%1 style %2:").arg(link.Id()).arg(link.Style());
    for (const Point &p : link.Route()) text += QStringLiteral(" (%1 %2)").arg(p.x).arg(p.y);
    return text.toStdString();
}

// Whether the route of an orthogonal link has exactly the directions of its style.
inline bool KeepsDirections(const Link &link) {
    const std::string_view directions = FindLinkStyle(link.Style())->directions;
    const std::vector<Point> &route = link.Route();
    if (route.size() != directions.size() + 1) return false;
    for (std::size_t i = 0; i < directions.size(); ++i)
        if (directions[i] == 'H' ? route[i].y != route[i + 1].y : route[i].x != route[i + 1].x) return false;
    return true;
}

// How many nodes that are seen the link runs through, its own two left out.
inline int NodesOnRoute(const Link &link) {
    int count = 0;
    const std::vector<Point> &route = link.Route();
    for (const Node &node : link.Owner().Nodes()) {
        if (node.Hidden() || &node == &link.Source() || &node == &link.Destination()) continue;
        bool meets = false;
        for (std::size_t i = 1; i < route.size(); ++i)
            meets = meets || Meets(node.Bounds(), ToQPointF(route[i - 1]), ToQPointF(route[i]));
        count += meets;
    }
    return count;
}

// Rows and columns of nodes, 3 to `most` of each, with gaps of at least `leastGap` twips in which a route
// with four segments or more always exists.
inline void FillWithGaps(Surface &surface, Dice &dice, int most, float leastGap) {
    const int columns = dice.Roll(3, most), rows = dice.Roll(3, most);
    const float gap = dice.Real(leastGap, 1200), side = dice.Real(400, 2000);
    for (int i = 0; i < columns * rows; ++i) {
        if (dice.Roll(0, 5) == 0) continue;
        const float width = side * dice.Real(0.4F, 1), height = side * dice.Real(0.4F, 1);
        surface.Nodes().Add(float(i % columns) * (side + gap) + dice.Real(0, side - width),
                            float(i / columns) * (side + gap) + dice.Real(0, side - height), width, height);
    }
}

} // namespace diagram::testing
