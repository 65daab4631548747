#include "diagram/layout/RouteAnew.h"

#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"

namespace diagram {

int RouteAnew(Surface &surface) {
    std::vector<std::pair<Link *, std::vector<Point>>> links;
    for (const auto &link : surface.Links())
        if (!link->KeepsPoints() && !link->OwnBends()) links.emplace_back(link.get(), link->Route());
    // Another style, and the former one again: the route is worked out from nothing.
    for (const auto &[link, route] : links) {
        const int style = link->Style();
        link->SetStyle(style == 0 ? 1 : 0);
        link->SetStyle(style);
    }
    surface.Routes().TidyAll();
    int changed = 0;
    for (const auto &[link, route] : links) changed += link->Route() != route;
    return changed;
}

} // namespace diagram
