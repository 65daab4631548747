#include "diagram/interaction/Guides.h"

#include <array>
#include <cmath>

namespace diagram {

namespace {

constexpr double kSame = 1; // twips within which two values are one

// A box seen along an axis: where it lies on it, and from where to where it reaches across it.
struct Extent {
    double low, high, from, to;
    double Middle() const { return (low + high) / 2; }
    double Length() const { return high - low; }
};

Extent Along(const QRectF &box, Qt::Orientation axis) {
    if (axis == Qt::Horizontal) return {box.left(), box.right(), box.top(), box.bottom()};
    return {box.top(), box.bottom(), box.left(), box.right()};
}

QPointF At(Qt::Orientation axis, double along, double across) {
    return axis == Qt::Horizontal ? QPointF(along, across) : QPointF(across, along);
}

// Calls `visit` with each value of `own` that moves and the value of `other` that it may be drawn to.
template <typename Visit>
void ForEachPair(const Extent &own, const Extent &other, Moving moving, Visit &&visit) {
    for (const double value : {other.low, other.high}) {
        if (moving != Moving::High) visit(own.low, value);
        if (moving != Moving::Low) visit(own.high, value);
    }
    if (moving == Moving::Whole) visit(own.Middle(), other.Middle());
}

// The nearest two boxes on either side of a box among those that reach into its row or column.
struct Row {
    std::optional<Extent> before, beforeThat, after, afterThat;
};

Row RowOf(const std::vector<QRectF> &around, const Extent &own, Qt::Orientation axis, double reach) {
    Row row;
    const auto noteBefore = [](std::optional<Extent> &best, const Extent &each) {
        if (!best || each.high > best->high) best = each;
    };
    const auto noteAfter = [](std::optional<Extent> &best, const Extent &each) {
        if (!best || each.low < best->low) best = each;
    };
    std::vector<Extent> members;
    for (const QRectF &box : around) {
        const Extent each = Along(box, axis);
        if (each.to > own.from && each.from < own.to) members.push_back(each);
    }
    for (const Extent &each : members) {
        if (each.high <= own.low + reach) noteBefore(row.before, each);
        if (each.low >= own.high - reach) noteAfter(row.after, each);
    }
    for (const Extent &each : members) {
        if (row.before && each.high <= row.before->low) noteBefore(row.beforeThat, each);
        if (row.after && each.low >= row.after->high) noteAfter(row.afterThat, each);
    }
    return row;
}

// A gap between two boxes that follow one another along the axis.
double Gap(const Extent &first, const Extent &second) { return second.low - first.high; }

QLineF Across(const Extent &first, const Extent &second, Qt::Orientation axis) {
    const double middle = (std::max(first.from, second.from) + std::min(first.to, second.to)) / 2;
    return {At(axis, first.high, middle), At(axis, second.low, middle)};
}

// Keeps the smallest of the shifts that it is shown.
class Smallest {
public:
    explicit Smallest(double reach) : reach_(reach) {}
    void Look(double shift) {
        if (std::abs(shift) > reach_ || (best_ && std::abs(shift) >= std::abs(*best_))) return;
        best_ = shift;
    }
    std::optional<double> Best() const { return best_; }

private:
    double reach_;
    std::optional<double> best_;
};

void LookAtGaps(Smallest &smallest, const Row &row, const Extent &own, Moving moving) {
    if (row.before && row.after) {
        const double difference = Gap(own, *row.after) - Gap(*row.before, own);
        smallest.Look(moving == Moving::Whole ? difference / 2 : difference);
    }
    if (moving != Moving::High && row.beforeThat)
        smallest.Look(Gap(*row.beforeThat, *row.before) - Gap(*row.before, own));
    if (moving != Moving::Low && row.afterThat)
        smallest.Look(Gap(own, *row.after) - Gap(*row.after, *row.afterThat));
}

void LookAtLength(Smallest &smallest, const Extent &own, const Extent &other, Moving moving) {
    if (moving == Moving::Whole || other.Length() <= kSame) return;
    const double longer = other.Length() - own.Length();
    smallest.Look(moving == Moving::High ? longer : -longer);
}

// The side along the axis by which a box is measured.
QLineF MeasuredSide(const QRectF &box, Qt::Orientation axis) {
    return axis == Qt::Horizontal ? QLineF(box.topLeft(), box.topRight())
                                  : QLineF(box.topLeft(), box.bottomLeft());
}

} // namespace

std::optional<double> Guides::Shift(const QRectF &box, Qt::Orientation axis, Moving moving,
                                    double reach) const {
    if (moving == Moving::Nothing) return {};
    const Extent own = Along(box, axis);
    Smallest smallest(reach);
    for (const QRectF &other : around_)
        ForEachPair(own, Along(other, axis), moving,
                    [&](double value, double to) { smallest.Look(to - value); });
    LookAtGaps(smallest, RowOf(around_, own, axis, reach), own, moving);
    for (const QRectF &other : around_) LookAtLength(smallest, own, Along(other, axis), moving);
    return smallest.Best();
}

std::optional<double> Guides::ShiftOfPlace(double place, Qt::Orientation axis, double reach) const {
    Smallest smallest(reach);
    for (const QRectF &other : around_) {
        const Extent each = Along(other, axis);
        for (const double to : {each.low, each.Middle(), each.high}) smallest.Look(to - place);
    }
    return smallest.Best();
}

std::vector<QLineF> Guides::Lines(const QRectF &box, Qt::Orientation axis, Moving moving) const {
    if (moving == Moving::Nothing) return {};
    const Extent own = Along(box, axis);
    struct Line {
        double from, to;
    };
    std::array<std::optional<Line>, 3> lines; // at the low side, the middle and the high side
    const std::array<double, 3> places{own.low, own.Middle(), own.high};
    for (const QRectF &each : around_) {
        const Extent other = Along(each, axis);
        const Line line{std::min(own.from, other.from), std::max(own.to, other.to)};
        ForEachPair(own, other, moving, [&](double value, double to) {
            if (std::abs(value - to) > kSame) return;
            auto &best = lines[value == own.low ? 0 : (value == own.high ? 2 : 1)];
            if (!best || line.to - line.from < best->to - best->from) best = line;
        });
    }
    if (lines[0] && lines[2]) lines[1].reset(); // follows from the two, and would run through texts
    std::vector<QLineF> result;
    for (size_t i = 0; i < lines.size(); ++i)
        if (lines[i])
            result.emplace_back(At(axis, places[i], lines[i]->from), At(axis, places[i], lines[i]->to));
    return result;
}

std::vector<QLineF> Guides::Gaps(const QRectF &box, Qt::Orientation axis, Moving moving) const {
    if (moving == Moving::Nothing) return {};
    const Extent own = Along(box, axis);
    const Row row = RowOf(around_, own, axis, kSame);
    std::vector<QLineF> result;
    const auto show = [&](const Extent &a, const Extent &b, const Extent &c, const Extent &d) {
        if (Gap(a, b) <= kSame || std::abs(Gap(a, b) - Gap(c, d)) > kSame) return;
        result.push_back(Across(a, b, axis));
        result.push_back(Across(c, d, axis));
    };
    if (row.before && row.after) show(*row.before, own, own, *row.after);
    if (moving != Moving::High && row.beforeThat) show(*row.beforeThat, *row.before, *row.before, own);
    if (moving != Moving::Low && row.afterThat) show(own, *row.after, *row.after, *row.afterThat);
    return result;
}

std::vector<QLineF> Guides::Sizes(const QRectF &box, Qt::Orientation axis, Moving moving) const {
    if (moving == Moving::Nothing || moving == Moving::Whole) return {};
    const double length = Along(box, axis).Length();
    const QRectF *nearest = nullptr;
    const auto away = [&](const QRectF &other) {
        const QPointF way = other.center() - box.center();
        return std::hypot(way.x(), way.y());
    };
    for (const QRectF &other : around_) {
        if (length <= kSame || std::abs(Along(other, axis).Length() - length) > kSame) continue;
        if (!nearest || away(other) < away(*nearest)) nearest = &other;
    }
    if (!nearest) return {};
    return {MeasuredSide(box, axis), MeasuredSide(*nearest, axis)};
}

} // namespace diagram
