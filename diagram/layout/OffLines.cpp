#include "diagram/layout/OffLines.h"

#include "diagram/layout/Boxes.h"

#include <cmath>

namespace diagram {

namespace {

// The boxes from left to right, to find those under a line.
class Columns {
public:
    Columns(const LayoutGraph &graph, const std::vector<QPointF> &centres)
        : graph_(graph), centres_(centres), order_(centres.size()) {
        for (std::size_t i = 0; i < order_.size(); ++i) {
            order_[i] = i;
            widest_ = std::max(widest_, graph.sizes[i].width());
        }
        std::ranges::stable_sort(order_, {}, [&](std::size_t i) { return centres[i].x(); });
    }

    // Calls `found(box, distance)` for each box that lies within `gap` of the edge's line and isn't its end.
    // The distance is from the line to the box's centre, across it: above 0 on its right.
    template <typename Found>
    void Walk(const LayoutEdge &edge, double gap, Found &&found) const {
        const QPointF from = centres_[std::size_t(edge.from)], to = centres_[std::size_t(edge.to)];
        const QPointF way = to - from;
        const double length = std::hypot(way.x(), way.y());
        if (length < 1) return;
        const double reach = widest_ / 2 + gap;
        const auto first = std::ranges::lower_bound(order_, std::min(from.x(), to.x()) - reach, {},
                                                    [&](std::size_t i) { return centres_[i].x(); });
        for (auto at = first; at != order_.end() && centres_[*at].x() < std::max(from.x(), to.x()) + reach;
             ++at) {
            if (int(*at) == edge.from || int(*at) == edge.to) continue;
            const QPointF apart = centres_[*at] - from;
            const double along = QPointF::dotProduct(apart, way) / length;
            const double across = (way.x() * apart.y() - way.y() * apart.x()) / length;
            if (along > 0 && along < length && std::abs(across) < Reach(*at, way / length) + gap)
                found(*at, across);
        }
    }

    // How far the box reaches from its centre across a line of that direction.
    double Reach(std::size_t box, const QPointF &direction) const {
        const QSizeF &size = graph_.sizes[box];
        return (size.width() * std::abs(direction.y()) + size.height() * std::abs(direction.x())) / 2;
    }

private:
    const LayoutGraph &graph_;
    const std::vector<QPointF> &centres_;
    std::vector<std::size_t> order_;
    double widest_ = 0;
};

bool PushOnce(const LayoutGraph &graph, std::vector<QPointF> &centres, double gap) {
    constexpr double kShare = 0.4; // of the way that is missing: other lines push as well
    const Columns columns(graph, centres);
    std::vector<QPointF> shifts(centres.size());
    bool any = false;
    for (const LayoutEdge &edge : graph.edges) {
        const QPointF way = centres[std::size_t(edge.to)] - centres[std::size_t(edge.from)];
        const QPointF direction = way / std::max(1.0, std::hypot(way.x(), way.y()));
        columns.Walk(edge, gap, [&](std::size_t box, double across) {
            any = true;
            const double missing = columns.Reach(box, direction) + gap - std::abs(across);
            const QPointF push =
                QPointF(-direction.y(), direction.x()) * (across >= 0 ? missing : -missing) * kShare;
            shifts[box] += push;
            shifts[std::size_t(edge.from)] -= push / 2;
            shifts[std::size_t(edge.to)] -= push / 2;
        });
    }
    for (std::size_t i = 0; i < centres.size(); ++i) {
        // Where many push at once, by half the box's width at most.
        const double most = graph.sizes[i].width() / 2, length = std::hypot(shifts[i].x(), shifts[i].y());
        centres[i] += length > most ? shifts[i] * (most / length) : shifts[i];
    }
    return any;
}

} // namespace

void PushOffLines(const LayoutGraph &graph, std::vector<QPointF> &centres, double gap, Progress &progress) {
    constexpr int kRounds = 30;
    for (int round = 0; round < kRounds; ++round) {
        progress.At(double(round) / kRounds);
        const bool pushed = PushOnce(graph, centres, gap / 2);
        if (!PushApartOnce(graph.sizes, centres, gap) && !pushed) return;
    }
}

int BoxesOnLines(const LayoutGraph &graph, const std::vector<QPointF> &centres) {
    const Columns columns(graph, centres);
    int count = 0;
    for (const LayoutEdge &edge : graph.edges) columns.Walk(edge, 0, [&](std::size_t, double) { ++count; });
    return count;
}

} // namespace diagram
