#include "diagram/interaction/SideStyle.h"

#include "diagram/model/LinkDraft.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/Obstacles.h"

#include <algorithm>
#include <cmath>

namespace diagram {

namespace {

constexpr size_t kMostSegments = 5; // a route with more is hard to follow
constexpr double kInside = 1;       // twips that a route must come into a box to run through it
constexpr QPointF kOut[] = {{0, -1}, {1, 0}, {0, 1}, {-1, 0}};

using Route = std::vector<Point>;

bool IsOrthogonal(int style) {
    const LinkStyleRow *row = FindLinkStyle(style);
    return row && row->form == LinkForm::Orthogonal;
}

bool LeavesBy(const LinkDraft &draft, const Route &route, int side) {
    const QRectF box = draft.source->Bounds();
    const QPointF from = ToQPointF(route[0]) - box.center(),
                  along = ToQPointF(route[1]) - ToQPointF(route[0]);
    const QPointF out = kOut[side];
    if (QPointF::dotProduct(along, out) <= 0) return false;
    if (IsOrthogonal(draft.data->style)) return QPointF::dotProduct(from, out) > 0;
    const QPointF share(from.x() / box.width(), from.y() / box.height());
    return QPointF::dotProduct(share, out) >= std::max(std::abs(share.x()), std::abs(share.y()));
}

bool MeetsOthers(Scene &scene, const LinkDraft &draft, const QPointF &from, const QPointF &to) {
    std::vector<Item *> items;
    scene.ItemsIn(Neighbourhood(from, to, kNearness), items);
    return std::ranges::any_of(items, [&](const Item *item) {
        const Node *node = item->AsNode();
        if (!node || node == draft.source || node == draft.destination) return false;
        return !Overlap(node->Bounds(), draft.source->Bounds()) && Meets(node->Bounds(), from, to, kNearness);
    });
}

// Whether the route runs neither through other nodes nor through its own.
bool IsClear(Scene &scene, const LinkDraft &draft, const Route &route) {
    for (size_t i = 1; i < route.size(); ++i) {
        const QPointF from = ToQPointF(route[i - 1]), to = ToQPointF(route[i]);
        const bool last = i + 1 == route.size();
        if (i > 1 && Meets(draft.source->Bounds(), from, to, -kInside)) return false;
        if (!last && draft.destination && Meets(draft.destination->Bounds(), from, to, -kInside))
            return false;
        if (MeetsOthers(scene, draft, from, to)) return false;
    }
    return true;
}

bool Begins(const LinkStyleRow &row, int side) {
    const char direction = kOut[side].y() == 0 ? 'H' : 'V';
    return row.form == LinkForm::Orthogonal && row.directions.front() == direction &&
           row.directions.size() <= kMostSegments;
}

} // namespace

int StyleLeavingBy(Scene &scene, const LinkDraft &draft, int side) {
    Surface &surface = scene.Model();
    if (!draft.source || draft.source == draft.destination) return draft.data->style;
    if (LeavesBy(draft, surface.Routes().RouteOf(draft), side)) return draft.data->style;
    LinkData data = *draft.data;
    LinkDraft other = draft;
    other.data = &data;
    for (const LinkStyleRow &row : LinkStyleTable()) {
        if (!Begins(row, side)) continue;
        data.style = std::uint8_t(row.value);
        const Route route = surface.Routes().RouteOf(other);
        if (LeavesBy(other, route, side) && IsClear(scene, other, route)) return row.value;
    }
    return draft.data->style;
}

} // namespace diagram
