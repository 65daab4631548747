#include "timeline/LineUpPlan.h"

#include <algorithm>
#include <cmath>

namespace timeline {

namespace {

constexpr RowGaps kGaps{150, 300, 600};

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

// The surface begins at 0.
double BeginOf(const DatedBox &node, double length) { return std::max(0.0, node.centre - length / 2); }

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
    const double begin = BeginOf(node, box.Length());
    const bool moves = std::abs(begin - box.Begin()) > kAtItsPlace;
    return {.begin = begin,
            .end = begin + box.Length(),
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

QRectF Placed(const QRectF &box, const PlannedBar &bar, double middle, bool rightwards) {
    const Turned former(box, rightwards);
    const double begin = std::abs(bar.begin - former.Begin()) > kAtItsPlace ? bar.begin : former.Begin();
    const bool stays = std::abs(middle - former.Middle()) <= kAtItsPlace;
    const double top = stays ? former.Top() : middle - bar.breadth / 2;
    return {rightwards ? QPointF(begin, top) : QPointF(top, begin), box.size()};
}

} // namespace

std::vector<QRectF> PlanLineUp(const LineUpTask &task, RowOrder order) {
    std::vector<PlannedBar> bars;
    for (const DatedBox &node : task.nodes) bars.push_back(BarOf(node, task.strip));
    std::vector<double> middles = PlanRows(bars, task.links, task.strip.edges, kGaps, order);
    while (TurnBackAtTheEdge(bars, middles))
        middles = PlanRows(bars, task.links, task.strip.edges, kGaps, order);
    std::vector<QRectF> boxes;
    for (std::size_t i = 0; i < bars.size(); ++i)
        boxes.push_back(Placed(task.nodes[i].box, bars[i], middles[i], task.strip.rightwards));
    return boxes;
}

} // namespace timeline
