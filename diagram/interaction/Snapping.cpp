#include "diagram/interaction/Snapping.h"

#include "diagram/interaction/Snap.h"
#include "diagram/scene/Scene.h"

#include <algorithm>

namespace diagram {

namespace {

// `box` with those sides moved that `x` and `y` name.
QRectF Stretched(const QRectF &box, Moving x, Moving y, const QPointF &distance) {
    const auto low = [](Moving moving, double by) { return moving == Moving::Low ? by : 0; };
    const auto high = [](Moving moving, double by) { return moving == Moving::High ? by : 0; };
    return box.adjusted(low(x, distance.x()), low(y, distance.y()), high(x, distance.x()),
                        high(y, distance.y()));
}

} // namespace

Snapping::Snapping(Scene &scene, const Stage &stage, const HeldItems *moving) : scene_(scene), stage_(stage) {
    if (moving)
        for (const HeldNode &held : moving->Nodes()) moving_.push_back(held.id);
    std::ranges::sort(moving_);
}

// The neighbours stand still while a gesture lasts, unless the surface is scrolled.
void Snapping::LookAround() {
    const QRectF seen = stage_.Seen();
    if (seen == seen_) return;
    seen_ = seen;
    std::vector<Item *> items;
    scene_.ItemsIn(seen, items);
    std::vector<QRectF> around;
    for (const Item *item : items) {
        const Node *node = item->AsNode();
        if (!node || !node->Bounds().intersects(seen)) continue;
        if (std::ranges::binary_search(moving_, node->Id())) continue;
        around.push_back(node->Bounds());
        if (around.size() > kMostNeighbours) break;
    }
    if (around.size() > kMostNeighbours) around.clear();
    guides_ = Guides(std::move(around));
}

double Snapping::Snapped(const QRectF &at, Qt::Orientation axis, Moving moving, double place, double distance,
                         const PointerInput &input) const {
    const double pixel = axis == Qt::Horizontal ? input.pixel.width() : input.pixel.height();
    const auto shift = guides_.Shift(at, axis, moving, kSnapPixels * pixel);
    if (shift) return distance + *shift;
    const Surface &surface = scene_.Model();
    return Snaps(surface, input) ? SnapValue(surface, place + distance) - place : distance;
}

QPointF Snapping::Move(const QRectF &box, const QPointF &corner, const QPointF &distance,
                       const PointerInput &input) {
    const bool alongX = qAbs(distance.x()) >= qAbs(distance.y());
    const bool x = !input.Shift() || alongX;
    const bool y = !input.Shift() || !alongX;
    QPointF way(x ? distance.x() : 0, y ? distance.y() : 0);
    if (!input.Alt()) {
        LookAround();
        const QRectF at = box.translated(way);
        if (x) way.setX(Snapped(at, Qt::Horizontal, Moving::Whole, corner.x(), way.x(), input));
        if (y) way.setY(Snapped(at, Qt::Vertical, Moving::Whole, corner.y(), way.y(), input));
    }
    Note(box.translated(way), Moving::Whole, Moving::Whole, input);
    return way;
}

QPointF Snapping::Resize(const QRectF &box, Moving x, Moving y, const QPointF &distance,
                         const PointerInput &input) {
    const QRectF at = Stretched(box, x, y, distance);
    if (input.Alt() || at.width() <= 0 || at.height() <= 0) return distance;
    LookAround();
    const double side = x == Moving::Low ? box.left() : box.right();
    const double level = y == Moving::Low ? box.top() : box.bottom();
    return {Snapped(at, Qt::Horizontal, x, side, distance.x(), input),
            Snapped(at, Qt::Vertical, y, level, distance.y(), input)};
}

QPointF Snapping::Corner(const QPointF &at, const PointerInput &input) {
    if (input.Alt()) return at;
    LookAround();
    const Surface &surface = scene_.Model();
    const auto snapped = [&](double place, Qt::Orientation axis, double pixel) {
        if (const auto shift = guides_.ShiftOfPlace(place, axis, kSnapPixels * pixel)) return place + *shift;
        return Snaps(surface, input) ? SnapValue(surface, place) : place;
    };
    return {snapped(at.x(), Qt::Horizontal, input.pixel.width()),
            snapped(at.y(), Qt::Vertical, input.pixel.height())};
}

void Snapping::Note(const QRectF &box, Moving x, Moving y, const PointerInput &input) {
    lines_.clear();
    gaps_.clear();
    sizes_.clear();
    if (input.Alt()) return;
    for (const auto &[axis, moving] : {std::pair(Qt::Horizontal, x), std::pair(Qt::Vertical, y)}) {
        for (const QLineF &line : guides_.Lines(box, axis, moving)) lines_.push_back(line);
        for (const QLineF &line : guides_.Gaps(box, axis, moving)) gaps_.push_back(line);
        for (const QLineF &line : guides_.Sizes(box, axis, moving)) sizes_.push_back(line);
    }
}

void Snapping::Show(Overlay &overlay) const {
    overlay.guides = lines_;
    overlay.gaps = gaps_;
    overlay.sizes = sizes_;
}

} // namespace diagram
