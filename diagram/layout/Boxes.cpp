#include "diagram/layout/Boxes.h"

#include <cmath>

namespace diagram {

namespace {

constexpr double kSlack = 1e-3; // twips: what rounding may take off a gap

// How far two boxes are too near across and down: both above 0 when they are.
struct Nearness {
    double across, down;
    bool IsTooNear() const { return across > kSlack && down > kSlack; }
};

// The boxes from left to right, to find those that are near to each other.
class Neighbourhood {
public:
    Neighbourhood(const std::vector<QSizeF> &sizes, const std::vector<QPointF> &centres, double gap)
        : sizes_(sizes), centres_(centres), gap_(gap), order_(sizes.size()) {
        for (std::size_t i = 0; i < order_.size(); ++i) {
            order_[i] = i;
            widest_ = std::max(widest_, sizes[i].width());
        }
        std::ranges::stable_sort(order_, {}, [&](std::size_t i) { return centres[i].x(); });
    }

    // Calls `found(a, b, nearness)` for all pairs that are too near, a left of b, until it gives false.
    template <typename Found>
    void Walk(Found &&found) const {
        for (std::size_t i = 0; i < order_.size(); ++i)
            for (std::size_t k = i + 1; k < order_.size(); ++k) {
                const std::size_t a = order_[i], b = order_[k];
                if (centres_[b].x() - centres_[a].x() >= (sizes_[a].width() + widest_) / 2 + gap_) break;
                const Nearness nearness = NearnessOf(a, b);
                if (nearness.IsTooNear() && !found(a, b, nearness)) return;
            }
    }

    Nearness NearnessOf(std::size_t a, std::size_t b) const {
        const QPointF apart = centres_[b] - centres_[a];
        return {(sizes_[a].width() + sizes_[b].width()) / 2 + gap_ - std::abs(apart.x()),
                (sizes_[a].height() + sizes_[b].height()) / 2 + gap_ - std::abs(apart.y())};
    }

private:
    const std::vector<QSizeF> &sizes_;
    const std::vector<QPointF> &centres_;
    double gap_;
    std::vector<std::size_t> order_; // from left to right
    double widest_ = 0;
};

std::vector<QPointF> Scaled(const std::vector<QPointF> &centres, double factor) {
    std::vector<QPointF> scaled = centres;
    for (QPointF &centre : scaled) centre *= factor;
    return scaled;
}

} // namespace

QRectF ExtentOf(const std::vector<QSizeF> &sizes, const std::vector<QPointF> &centres) {
    if (sizes.empty()) return {};
    QRectF all = BoxAround(centres.front(), sizes.front());
    for (std::size_t i = 1; i < sizes.size(); ++i) {
        const QRectF box = BoxAround(centres[i], sizes[i]);
        all = QRectF(QPointF(std::min(all.left(), box.left()), std::min(all.top(), box.top())),
                     QPointF(std::max(all.right(), box.right()), std::max(all.bottom(), box.bottom())));
    }
    return all;
}

bool AnyTooNear(const std::vector<QSizeF> &sizes, const std::vector<QPointF> &centres, double gap) {
    bool any = false;
    Neighbourhood(sizes, centres, gap).Walk([&](std::size_t, std::size_t, const Nearness &) {
        any = true;
        return false;
    });
    return any;
}

double TightestScale(const std::vector<QSizeF> &sizes, const std::vector<QPointF> &centres, double gap) {
    if (sizes.size() < 2) return 1;
    double far = 1;
    while (AnyTooNear(sizes, Scaled(centres, far), gap)) far *= 2;
    double near = far / 2;
    if (far == 1)
        for (near = 0.5; near > 1e-3 && !AnyTooNear(sizes, Scaled(centres, near), gap); near /= 2) far = near;
    while (far / near > 1.01) {
        const double middle = (near + far) / 2;
        (AnyTooNear(sizes, Scaled(centres, middle), gap) ? near : far) = middle;
    }
    return far;
}

bool PushApartOnce(const std::vector<QSizeF> &sizes, std::vector<QPointF> &centres, double gap) {
    std::vector<QPointF> shifts(centres.size());
    bool any = false;
    const Neighbourhood pairs(sizes, centres, gap);
    pairs.Walk([&](std::size_t a, std::size_t b, const Nearness &nearness) {
        any = true;
        const bool isAcross = nearness.across < nearness.down;
        // Of two in the same line the one that comes later goes down.
        const double side = isAcross || centres[b].y() >= centres[a].y() ? 1 : -1;
        // Of the way each: a little more than half, so that the rounds come to an end.
        constexpr double kMore = 0.505;
        const QPointF shift =
            isAcross ? QPointF(nearness.across * kMore, 0) : QPointF(0, side * nearness.down * kMore);
        shifts[a] -= shift;
        shifts[b] += shift;
        return true;
    });
    for (std::size_t i = 0; i < centres.size(); ++i) centres[i] += shifts[i];
    return any;
}

void PushApart(const std::vector<QSizeF> &sizes, std::vector<QPointF> &centres, double gap,
               Progress &progress) {
    constexpr int kRounds = 60; // before more room is made
    constexpr double kMoreRoom = 1.1;
    for (int round = 1; PushApartOnce(sizes, centres, gap); ++round) {
        progress.At(1 - 1.0 / (1 + round / 20.0));
        if (round % kRounds == 0) centres = Scaled(centres, kMoreRoom);
    }
}

} // namespace diagram
