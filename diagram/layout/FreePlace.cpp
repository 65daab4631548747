#include "diagram/layout/FreePlace.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace diagram {

namespace {

constexpr double kTouch = 0.01; // twips by which a centre may lie within what it must not

// Where the box's centre must not lie: each held box, grown by half the box's size and the gap.
std::vector<QRectF> Around(const std::vector<QRectF> &held, const QSizeF &size, double gap) {
    std::vector<QRectF> closed;
    closed.reserve(held.size());
    const double across = size.width() / 2 + gap, down = size.height() / 2 + gap;
    for (const QRectF &box : held) closed.push_back(box.adjusted(-across, -down, across, down));
    return closed;
}

class Search {
public:
    Search(std::vector<QRectF> closed, const QPointF &wish, const QPointF &least)
        : closed_(std::move(closed)), wish_(wish), least_(least) {}

    // The nearest free centre lies on the upright of the wish or of a closed box's side.
    QPointF Nearest() {
        std::vector<double> uprights{wish_.x()};
        for (const QRectF &box : closed_)
            for (const double x : {box.right(), box.left()})
                if (x >= least_.x()) uprights.push_back(x);
        std::ranges::stable_sort(uprights, {}, [&](double x) { return std::abs(x - wish_.x()); });
        for (const double x : uprights) {
            if (std::abs(x - wish_.x()) >= best_) break;
            TryUpright(x);
        }
        return at_;
    }

private:
    void TryUpright(double x) {
        barred_.clear();
        for (const QRectF &box : closed_)
            if (box.left() + kTouch < x && x < box.right() - kTouch)
                barred_.emplace_back(box.top(), box.bottom());
        std::ranges::sort(barred_);
        Try({x, Below()});
        if (const auto above = Above()) Try({x, *above});
    }
    void Try(const QPointF &at) {
        const double distance = std::hypot(at.x() - wish_.x(), at.y() - wish_.y());
        if (distance < best_) best_ = distance, at_ = at;
    }
    // The first free height from the wish on.
    double Below() const {
        double y = wish_.y();
        for (const auto &[top, bottom] : barred_)
            if (top + kTouch < y && y < bottom - kTouch) y = bottom;
        return y;
    }
    std::optional<double> Above() {
        double y = wish_.y();
        std::ranges::sort(barred_, std::greater(), [](const auto &span) { return span.second; });
        for (const auto &[top, bottom] : barred_)
            if (top + kTouch < y && y < bottom - kTouch) y = top;
        return y < least_.y() ? std::nullopt : std::optional(y);
    }

    std::vector<QRectF> closed_;
    QPointF wish_, least_, at_;
    std::vector<std::pair<double, double>> barred_; // of the upright at hand
    double best_ = std::numeric_limits<double>::infinity();
};

} // namespace

QPointF NearestFree(const QRectF &box, const std::vector<QRectF> &held, double gap, const QPointF &least) {
    const QPointF nearest = least + QPointF(box.width(), box.height()) / 2;
    const QPointF wish(std::max(box.center().x(), nearest.x()), std::max(box.center().y(), nearest.y()));
    return Search(Around(held, box.size(), gap), wish, nearest).Nearest();
}

} // namespace diagram
