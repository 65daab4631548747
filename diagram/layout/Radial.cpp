#include "diagram/layout/Radial.h"

#include "diagram/layout/Boxes.h"
#include "diagram/layout/Breadth.h"
#include "diagram/layout/Parts.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace diagram {

namespace {

constexpr double kWholeTurn = 2 * std::numbers::pi;

// The box that all edges lead away from; -1 when there is no single one.
int Source(const LayoutGraph &graph) {
    std::vector<bool> entered(graph.sizes.size(), false);
    for (const LayoutEdge &edge : graph.edges)
        if (edge.from != edge.to) entered[std::size_t(edge.to)] = true;
    if (std::ranges::count(entered, false) != 1) return -1;
    return int(std::ranges::find(entered, false) - entered.begin());
}

// The middle of a longest way, as two searches find it: in a tree the very middle.
int Middle(const Adjacency &neighbours) {
    const BreadthFirst there(neighbours, 0);
    const BreadthFirst back(neighbours, there.order.back());
    int box = back.order.back();
    for (int steps = back.depth[std::size_t(box)] / 2; steps > 0; --steps)
        box = back.parent[std::size_t(box)];
    return box;
}

// Leaves without children count as long as they are, all others at least as much as what hangs on them.
class Rings {
public:
    Rings(const LayoutGraph &part, const Adjacency &neighbours, int root)
        : part_(part),
          tree_(neighbours, root),
          weights_(part.sizes.size(), 0),
          from_(weights_),
          to_(weights_) {
        Weigh();
        Share(root);
    }

    std::vector<QPointF> Centres() const {
        std::vector<QPointF> centres(part_.sizes.size());
        for (std::size_t box = 0; box < centres.size(); ++box) {
            const double angle = (from_[box] + to_[box]) / 2;
            centres[box] = double(tree_.depth[box]) * QPointF(std::cos(angle), std::sin(angle));
        }
        return centres;
    }

private:
    void Weigh() {
        for (auto box = tree_.order.rbegin(); box != tree_.order.rend(); ++box) {
            const auto at = std::size_t(*box);
            const QSizeF &size = part_.sizes[at];
            const double own = std::hypot(size.width(), size.height()) / std::max(1, tree_.depth[at]);
            weights_[at] = std::max(weights_[at], own);
            if (tree_.parent[at] >= 0) weights_[std::size_t(tree_.parent[at])] += weights_[at];
        }
    }

    // Gives each box a sector, and its children shares of it by their weights: no wider than that straight
    // lines to them stay outside of the ring on which it stands.
    void Share(int root) {
        constexpr double kUp = -std::numbers::pi / 2;
        from_[std::size_t(root)] = kUp, to_[std::size_t(root)] = kUp + kWholeTurn;
        std::vector<double> sums(weights_.size(), 0), starts(weights_.size(), 0), widths(weights_.size(), 0);
        for (const int box : tree_.order)
            if (box != root) sums[std::size_t(tree_.parent[std::size_t(box)])] += weights_[std::size_t(box)];
        for (const int box : tree_.order) {
            const auto at = std::size_t(box);
            if (box != root) {
                const auto parent = std::size_t(tree_.parent[at]);
                from_[at] = starts[parent];
                to_[at] = starts[parent] += widths[parent] * weights_[at] / sums[parent];
            }
            const double depth = tree_.depth[at];
            const double widest = box == root ? kWholeTurn : 2 * std::acos(depth / (depth + 1));
            widths[at] = std::min(to_[at] - from_[at], widest);
            starts[at] = (from_[at] + to_[at] - widths[at]) / 2;
        }
    }

    const LayoutGraph &part_;
    BreadthFirst tree_;
    std::vector<double> weights_, from_, to_; // angles of the sector
};

std::vector<QPointF> PlaceAround(const LayoutGraph &part, const Adjacency &neighbours, int root,
                                 const LayoutOptions &options) {
    std::vector<QPointF> centres = Rings(part, neighbours, root).Centres();
    double ring = options.levelDistance;
    for (const QSizeF &size : part.sizes) ring = std::max(ring, options.levelDistance + size.height());
    for (QPointF &centre : centres) centre *= ring;
    const double factor = TightestScale(part.sizes, centres, std::max(1.0, options.neighbourDistance / 2));
    for (QPointF &centre : centres) centre *= std::max(1.0, factor);
    return centres;
}

double AreaOf(const LayoutGraph &part, const std::vector<QPointF> &centres) {
    const QSizeF size = ExtentOf(part.sizes, centres).size();
    return size.width() * size.height();
}

std::vector<QPointF> PlaceOne(const LayoutGraph &part, const LayoutOptions &options) {
    constexpr double kForTheSource = 1.6; // times the area: a root that edges tell is worth some
    const Adjacency neighbours = NeighboursOf(part);
    const std::vector<QPointF> byMiddle = PlaceAround(part, neighbours, Middle(neighbours), options);
    const int source = Source(part);
    if (source < 0) return byMiddle;
    const std::vector<QPointF> bySource = PlaceAround(part, neighbours, source, options);
    return AreaOf(part, bySource) <= kForTheSource * AreaOf(part, byMiddle) ? bySource : byMiddle;
}

} // namespace

std::vector<QPointF> Radial(const LayoutGraph &graph, const LayoutOptions &options, Progress &progress) {
    return PlaceParts(graph, options.levelDistance, progress,
                      [&](const LayoutGraph &part, Progress &) { return PlaceOne(part, options); });
}

} // namespace diagram
