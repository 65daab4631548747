#include "diagram/layout/Pack.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace diagram {

namespace {

constexpr int kWidthsTried = 16;
constexpr double kNarrowest = 0.7, kWidest = 2.2; // of the width that all would need without any loss

// The lower edge of what has been put down so far, from left to right: steps that differ in height.
class Skyline {
public:
    explicit Skyline(double width) : width_(width), steps_{{0, 0}} {}

    // Puts a box as high up as it goes, then as far to the left; gives its left top corner.
    QPointF Put(const QSizeF &box) {
        std::size_t best = 0;
        double top = std::numeric_limits<double>::infinity();
        for (std::size_t i = 0; i < steps_.size() && Fits(i, box.width()); ++i)
            if (const double here = TopAt(i, box.width()); here < top) best = i, top = here;
        const QPointF at(steps_[best].left, top);
        Cover(best, at.x() + box.width(), top + box.height());
        return at;
    }

private:
    struct Step {
        double left, top;
    };

    // The first step always takes a box, however wide it is.
    bool Fits(std::size_t i, double width) const { return i == 0 || steps_[i].left + width <= width_; }
    double TopAt(std::size_t i, double width) const {
        double top = steps_[i].top;
        for (std::size_t k = i + 1; k < steps_.size() && steps_[k].left < steps_[i].left + width; ++k)
            top = std::max(top, steps_[k].top);
        return top;
    }
    // From step `first` to `right` the edge lies at `top` now.
    void Cover(std::size_t first, double right, double top) {
        std::size_t last = first;
        while (last + 1 < steps_.size() && steps_[last + 1].left <= right) ++last;
        const double below = steps_[last].top;
        const bool ends = last > first && steps_[last].left == right; // the step begins where the box ends
        if (ends) --last;
        steps_[first].top = top;
        steps_.erase(steps_.begin() + std::ptrdiff_t(first) + 1, steps_.begin() + std::ptrdiff_t(last) + 1);
        if (!ends && right < width_)
            steps_.insert(steps_.begin() + std::ptrdiff_t(first) + 1, Step{right, below});
        Join(first + 1), Join(first);
    }
    // A step as high as the one before it is none.
    void Join(std::size_t i) {
        if (i > 0 && i < steps_.size() && steps_[i].top == steps_[i - 1].top)
            steps_.erase(steps_.begin() + std::ptrdiff_t(i));
    }

    double width_;
    std::vector<Step> steps_;
};

// The boxes with the gap added on the right and below.
std::vector<QSizeF> Padded(const std::vector<QSizeF> &boxes, double gap) {
    std::vector<QSizeF> padded;
    padded.reserve(boxes.size());
    for (const QSizeF &box : boxes) padded.emplace_back(box.width() + gap, box.height() + gap);
    return padded;
}

std::vector<std::size_t> HighestFirst(const std::vector<QSizeF> &boxes) {
    std::vector<std::size_t> order(boxes.size());
    std::iota(order.begin(), order.end(), 0U);
    std::ranges::stable_sort(
        order, [&](std::size_t a, std::size_t b) { return boxes[a].height() > boxes[b].height(); });
    return order;
}

struct Packing {
    std::vector<QPointF> corners;
    double page = std::numeric_limits<double>::infinity(); // the width of the page that holds them all
};

Packing PackInto(double width, const std::vector<QSizeF> &boxes, const std::vector<std::size_t> &order,
                 double proportions) {
    Packing packing{std::vector<QPointF>(boxes.size()), 0};
    Skyline skyline(width);
    for (const std::size_t i : order) {
        const QPointF at = packing.corners[i] = skyline.Put(boxes[i]);
        packing.page =
            std::max({packing.page, at.x() + boxes[i].width(), (at.y() + boxes[i].height()) * proportions});
    }
    return packing;
}

} // namespace

std::vector<QPointF> Pack(const std::vector<QSizeF> &boxes, double gap, double proportions) {
    const std::vector<QSizeF> padded = Padded(boxes, gap);
    const std::vector<std::size_t> order = HighestFirst(padded);
    double area = 0, widest = 0;
    for (const QSizeF &box : padded)
        area += box.width() * box.height(), widest = std::max(widest, box.width());
    const double ideal = std::sqrt(area * proportions);
    Packing best;
    for (int i = 0; i < kWidthsTried && !boxes.empty(); ++i) {
        const double share = double(i) / (kWidthsTried - 1);
        const double width = std::max(widest, ideal * kNarrowest * std::pow(kWidest / kNarrowest, share));
        Packing packing = PackInto(width, padded, order, proportions);
        if (packing.page < best.page) best = std::move(packing);
    }
    return best.corners;
}

} // namespace diagram
