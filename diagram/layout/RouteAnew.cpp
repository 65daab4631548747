#include "diagram/layout/RouteAnew.h"

#include "diagram/model/Surface.h"

namespace diagram {

int RouteAnew(Surface &surface) {
    std::vector<std::pair<Link *, std::vector<Point>>> links;
    for (const auto &link : surface.Links())
        if (!link->AddPointsMode() && !link->MovePointsMode() && !link->OwnBends())
            links.emplace_back(link.get(), link->Way());
    // A way is worked out again when the style was another one.
    for (const auto &[link, way] : links) {
        const int style = link->Style();
        link->SetStyle(style == 0 ? 1 : 0);
        link->SetStyle(style);
    }
    surface.TidyWays();
    int changed = 0;
    for (const auto &[link, way] : links) changed += link->Way() != way;
    return changed;
}

} // namespace diagram
