#include "diagram/interaction/RubberBand.h"

#include "diagram/edit/History.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"

#include <array>

namespace diagram {

namespace {

std::vector<ItemId> Selected(const Surface &surface) {
    std::vector<ItemId> ids;
    for (const Node *node : surface.SelectedNodes()) ids.push_back(node->Id());
    for (const Link *link : surface.SelectedLinks()) ids.push_back(link->Id());
    return ids;
}

// Strips that hold what lies in one of two rectangles and not in both.
std::array<QRectF, 4> Strips(const QRectF &a, const QRectF &b) {
    const QRectF all = a | b;
    const auto across = [&](double x1, double x2) {
        return QRectF(QPointF(std::min(x1, x2), all.top()), QPointF(std::max(x1, x2), all.bottom()));
    };
    const auto along = [&](double y1, double y2) {
        return QRectF(QPointF(all.left(), std::min(y1, y2)), QPointF(all.right(), std::max(y1, y2)));
    };
    return {across(a.left(), b.left()), across(a.right(), b.right()), along(a.top(), b.top()),
            along(a.bottom(), b.bottom())};
}

} // namespace

RubberBand::RubberBand(Scene &scene, const PointerInput &press)
    : scene_(scene),
      press_(press),
      before_(Selected(scene.Model())),
      wasThere_(before_.begin(), before_.end()),
      band_(press.at, press.at) {}

void RubberBand::SelectAsAtThePress() {
    Surface &surface = scene_.Model();
    surface.UnselectAll();
    for (const ItemId id : before_)
        if (Item *item = FindItem(surface, id)) SetSelected(*item, true);
}

// An item changes only where the band came to it or left it.
void RubberBand::Follow(const QRectF &band, bool add) {
    if (std::exchange(adds_, add) != add) {
        if (add)
            SelectAsAtThePress();
        else
            scene_.Model().UnselectAll();
        band_ = QRectF(press_.at, press_.at);
    }
    std::vector<Item *> items;
    for (const QRectF &strip : Strips(band_, band)) scene_.ItemsIn(strip, items);
    band_ = band;
    for (Item *item : items) {
        const bool wanted = LiesInside(*item, band) || (add && wasThere_.contains(item->Id()));
        if (IsSelectable(*item) && IsSelected(*item) != wanted) SetSelected(*item, wanted);
    }
}

std::unique_ptr<Gesture> RubberBand::Move(const PointerInput &input) {
    Follow(QRectF(press_.at, input.at).normalized(), input.Ctrl());
    return nullptr;
}

bool RubberBand::DiffersFromThePress() const {
    const std::vector<ItemId> now = Selected(scene_.Model());
    return now.size() != before_.size() ||
           !std::ranges::all_of(now, [&](ItemId id) { return wasThere_.contains(id); });
}

void RubberBand::Commit(const PointerInput &input) {
    Move(input);
    if (!DiffersFromThePress()) return;
    const ActionGroup group(scene_.Model());
    scene_.Model().Events().AfterSelect(scene_.Model());
}

void RubberBand::Cancel() { SelectAsAtThePress(); }

} // namespace diagram
