#include "diagram/view/UndoneItems.h"

#include "diagram/interaction/Selecting.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"

#include <algorithm>
#include <QPolygonF>

namespace diagram {

namespace {

bool IsHidden(const Item &item) { return item.AsNode() ? item.AsNode()->Hidden() : item.AsLink()->Hidden(); }

double DistanceTo(const QRectF &seen, const QRectF &area) {
    const QPointF way = area.center() - seen.center();
    return way.x() * way.x() + way.y() * way.y();
}

// Also for a line along an axis, whose box has no area.
bool Touches(const QRectF &seen, const QRectF &area) { return seen.intersects(area.adjusted(-1, -1, 1, 1)); }

QPointF GrownOf(const Surface &surface) { return {surface.Data().grownLeft, surface.Data().grownTop}; }

} // namespace

void UndoneItems::Begin(const Scene &scene) {
    collecting_ = true;
    grown_ = GrownOf(scene.Model());
    touched_.clear();
    gone_.clear();
    goneLinks_.clear();
}

void UndoneItems::Note(const Item &item, Change what) {
    if (collecting_ && what != Change::Selection) touched_.insert(item.Id());
}

void UndoneItems::NoteGone(const Item &item) {
    if (!collecting_ || IsHidden(item)) return;
    if (item.AsNode()) return gone_.push_back(item.AsNode()->Bounds());
    QPolygonF route;
    for (const Point &point : item.AsLink()->Data().points) route << ToQPointF(point);
    goneLinks_.push_back(route.boundingRect());
}

std::vector<QRectF> UndoneItems::Areas(Scene &scene) const {
    std::vector<QRectF> nodes = gone_, links = goneLinks_;
    for (const ItemId id : touched_) {
        const Item *item = FindItem(scene.Model(), id);
        if (!item || IsHidden(*item)) continue;
        if (item->AsNode())
            nodes.push_back(item->AsNode()->Bounds());
        else
            links.push_back(scene.Bounds(*item));
    }
    return nodes.empty() ? links : nodes;
}

QRectF UndoneItems::TakeArea(Scene &scene, const QRectF &seen) {
    collecting_ = false;
    const std::vector<QRectF> areas = Areas(scene);
    if (areas.empty()) return {};
    QRectF all = areas.front();
    for (const QRectF &area : areas) all |= area;
    const bool hasRoom = all.width() <= seen.width() && all.height() <= seen.height();
    if (hasRoom && grown_ == GrownOf(scene.Model())) return all;
    if (std::ranges::any_of(areas, [&](const QRectF &area) { return Touches(seen, area); })) return {};
    return *std::ranges::min_element(areas, {}, [&](const QRectF &area) { return DistanceTo(seen, area); });
}

} // namespace diagram
