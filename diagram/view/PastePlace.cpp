#include "diagram/view/PastePlace.h"

#include "diagram/model/ScreenValues.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"

#include <algorithm>
#include <cmath>

namespace diagram {

namespace {

constexpr double kGap = 300;           // twips between what stands there and what comes
constexpr double kOverlap = 15;        // twips by which boxes may overlap
constexpr double kHolds = 2;           // a node around all that is so many times as large is not in the way
constexpr int kMostPlaces = 1000;      // looked at for a free one
constexpr std::size_t kManyBoxes = 50; // beyond it their union stands for them

double AreaOf(const QRectF &box) { return box.width() * box.height(); }

class Places {
public:
    Places(Scene &scene, const std::vector<QRectF> &boxes, const QRectF &seen)
        : scene_(scene), boxes_(boxes), seen_(seen), extent_(boxes.front()) {
        for (const QRectF &box : boxes) extent_ |= box;
        if (boxes_.size() > kManyBoxes) boxes_.assign(1, extent_);
    }

    const QRectF &Extent() const { return extent_; }

    bool IsFree(const QPointF &shift) const {
        const QRectF around = extent_.translated(shift);
        return !Any(shift, [&](const QRectF &node, const QRectF &box) {
            const bool holdsAll = node.contains(around | extent_) && AreaOf(node) > kHolds * AreaOf(extent_);
            return !holdsAll && node.intersects(box.adjusted(kOverlap, kOverlap, -kOverlap, -kOverlap));
        });
    }

    bool CoversSomething(const QPointF &shift) const {
        return Any(shift, [](const QRectF &node, const QRectF &box) {
            return AreaOf(node & box) * 2 > AreaOf(node);
        });
    }

    // The next free place after `home`: in sight row by row, else to the right of it.
    QPointF Beside(const QPointF &home) const {
        if (const std::optional<QPointF> shift = InSight(home)) return *shift;
        for (int column = 1; column <= kMostPlaces; ++column) {
            const QPointF shift = OnGrid(home + At(column, 0));
            if (IsFree(shift)) return shift;
        }
        return Aside(home);
    }

    // Whole steps of the grid, so that everything stands on it as before.
    QPointF OnGrid(const QPointF &shift) const {
        const Surface &surface = scene_.Model();
        if (!surface.Screen().SnapToGrid()) return shift;
        const double grid = surface.Screen().GridSize();
        return {std::ceil(shift.x() / grid) * grid, std::ceil(shift.y() / grid) * grid};
    }

private:
    QPointF At(int column, int row) const {
        return {column * (extent_.width() + kGap), row * (extent_.height() + kGap)};
    }

    std::optional<QPointF> InSight(const QPointF &home) const {
        for (int place = 1, column = 1, row = 0; place <= kMostPlaces; ++place, ++column) {
            const QPointF shift = OnGrid(home + At(column, row));
            const QRectF there = extent_.translated(shift).adjusted(0, 0, kGap / 2, kGap / 2);
            if (there.bottom() > seen_.bottom()) break;
            if (there.right() > seen_.right()) {
                if (column == 0) break;
                ++row, column = -1;
            } else if (seen_.contains(there) && IsFree(shift)) {
                return shift;
            }
        }
        return std::nullopt;
    }

    // Calls `meets(node, box)` with the boxes of visible nodes and of what comes.
    template <typename Meets>
    bool Any(const QPointF &shift, Meets meets) const {
        std::vector<Item *> items;
        for (const QRectF &box : boxes_) {
            const QRectF there = box.translated(shift);
            items.clear();
            scene_.ItemsIn(there, items);
            const bool met = std::ranges::any_of(items, [&](const Item *item) {
                return item->AsNode() && meets(item->AsNode()->Bounds(), there);
            });
            if (met) return true;
        }
        return false;
    }

    // Where all places are taken: at least not with a box just on a node's.
    QPointF Aside(QPointF shift) const {
        const auto stands = [&] {
            return Any(shift, [](const QRectF &node, const QRectF &box) { return node == box; });
        };
        do shift += QPointF(kGap, kGap);
        while (stands());
        return shift;
    }

    Scene &scene_;
    std::vector<QRectF> boxes_;
    QRectF seen_;
    QRectF extent_;
};

// `box` with its middle at the point, or its beginning where it is larger than what is seen. It leaves the
// page only where the point does.
QPointF CornerAt(const QRectF &box, const QPointF &at, const QSizeF &seen) {
    const auto start = [](double middle, double length, double most) {
        const double begin = length > most ? middle : middle - length / 2;
        return middle >= 0 ? std::max(0.0, begin) : begin;
    };
    return {start(at.x(), box.width(), seen.width()), start(at.y(), box.height(), seen.height())};
}

} // namespace

QPointF ShiftForPaste(Scene &scene, const std::vector<QRectF> &boxes, const PasteAim &aim) {
    const Places places(scene, boxes, aim.seen);
    const QRectF &extent = places.Extent();
    const auto to = [&](const QPointF &middle) {
        return places.OnGrid(CornerAt(extent, middle, aim.seen.size()) - extent.topLeft());
    };
    if (aim.pointer) {
        const QPointF shift = to(*aim.pointer);
        if (!places.CoversSomething(shift)) return shift;
        return places.Beside(extent.contains(*aim.pointer) ? QPointF() : shift);
    }
    const bool inSight = extent.adjusted(-1, -1, 1, 1).intersects(aim.seen);
    const QPointF home = inSight ? QPointF() : to(aim.seen.center());
    return places.IsFree(home) ? home : places.Beside(home);
}

QPointF ShiftBeside(Scene &scene, const std::vector<QRectF> &boxes, const QRectF &seen) {
    return Places(scene, boxes, seen).Beside({});
}

} // namespace diagram
