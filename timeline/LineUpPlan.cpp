#include "timeline/LineUpPlan.h"

#include <algorithm>
#include <cmath>

namespace timeline {

namespace {

constexpr RowGaps kGaps{.along = 150, .across = 300, .lanes = 600, .linked = 390};

// A box seen along and across the strip.
class Turned {
public:
    Turned(const QRectF &box, bool rightwards)
        : box_(rightwards ? box : QRectF(box.top(), box.left(), box.height(), box.width())) {}
    double Length() const { return box_.width(); }
    double Breadth() const { return box_.height(); }
    double Begin() const { return box_.left(); }
    double Top() const { return box_.top(); }
    double Middle() const { return box_.center().y(); }

private:
    QRectF box_;
};

// Where the node belongs along the strip, but not before the surface's edge, which lies at 0.
Stretch StretchOf(const DatedBox &node, double length) {
    if (node.bar) return {std::max(0.0, node.bar->begin), std::max(0.0, node.bar->end)};
    const double begin = std::max(0.0, node.centre - length / 2);
    return {begin, begin + length};
}

bool StandsBefore(const StripOnSurface &strip, double middle) {
    switch (strip.sides) {
    case Sides::Behind:
        return false;
    case Sides::Before:
        return middle <= strip.edges.behind;
    case Sides::Both:
        return middle < (strip.edges.before + strip.edges.behind) / 2;
    }
    return false;
}

PlannedBar BarOf(const DatedBox &node, const StripOnSurface &strip) {
    const Turned box(node.box, strip.rightwards);
    const auto [begin, end] = StretchOf(node, box.Length());
    const bool moves =
        std::abs(begin - box.Begin()) > kRounding || std::abs(end - begin - box.Length()) > kRounding;
    return {.begin = begin,
            .end = end,
            .beside = node.beside,
            .breadth = box.Breadth(),
            .middle = box.Middle(),
            .lane = node.lane,
            .before = StandsBefore(strip, box.Middle()),
            .gives = node.gives || moves};
}

// Whether some had to be put on the other side.
bool TurnBackAtTheEdge(std::vector<PlannedBar> &bars, const std::vector<double> &middles) {
    bool turned = false;
    for (std::size_t i = 0; i < bars.size(); ++i) {
        if (!bars[i].before || middles[i] - bars[i].breadth / 2 >= 0) continue;
        bars[i].before = false;
        bars[i].gives = turned = true;
    }
    return turned;
}

double Near(double wanted, double present) {
    return std::abs(wanted - present) > kRounding ? wanted : present;
}

QRectF Placed(const QRectF &box, const PlannedBar &bar, double middle, bool rightwards) {
    const Turned former(box, rightwards);
    const double begin = Near(bar.begin, former.Begin());
    const double length = Near(bar.end - bar.begin, former.Length());
    const bool stays = std::abs(middle - former.Middle()) <= kRounding;
    const double top = stays ? former.Top() : middle - bar.breadth / 2;
    return rightwards ? QRectF(begin, top, length, bar.breadth) : QRectF(top, begin, bar.breadth, length);
}

bool IsGround(const QRectF &box, const std::vector<DatedBox> &nodes) {
    return std::ranges::any_of(nodes, [&](const DatedBox &node) { return box.contains(node.box); });
}

std::vector<FixedBox> FixedBoxes(const LineUpTask &task) {
    std::vector<FixedBox> fixed;
    for (const QRectF &other : task.others) {
        if (IsGround(other, task.nodes)) continue;
        const Turned box(other, task.strip.rightwards);
        fixed.push_back({box.Begin(), box.Begin() + box.Length(), box.Top(), box.Top() + box.Breadth()});
    }
    return fixed;
}

} // namespace

std::vector<QRectF> PlanLineUp(const LineUpTask &task, RowOrder order) {
    std::vector<PlannedBar> bars;
    for (const DatedBox &node : task.nodes) bars.push_back(BarOf(node, task.strip));
    const std::vector<FixedBox> fixed = FixedBoxes(task);
    std::vector<double> middles = PlanRows(bars, task.links, task.strip.edges, kGaps, order, fixed);
    while (TurnBackAtTheEdge(bars, middles))
        middles = PlanRows(bars, task.links, task.strip.edges, kGaps, order, fixed);
    std::vector<QRectF> boxes;
    for (std::size_t i = 0; i < bars.size(); ++i)
        boxes.push_back(Placed(task.nodes[i].box, bars[i], middles[i], task.strip.rightwards));
    return boxes;
}

} // namespace timeline
