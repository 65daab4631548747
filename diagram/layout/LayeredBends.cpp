#include "diagram/layout/LayeredBends.h"

#include <algorithm>
#include <cmath>

namespace diagram {

namespace {

constexpr double kNear = 75;    // twips that an edge keeps from boxes that it leads past
constexpr double kStraight = 2; // twips; a bend that lies so near to a straight line isn't seen

std::size_t At(int i) { return std::size_t(i); }

class Bending {
public:
    Bending(const LayeredPart &part, const std::vector<double> &columns, const std::vector<LayerBand> &bands)
        : graph_(part.graph), columns_(columns), bands_(bands), position_(part.graph.vertices.size()) {
        for (const std::vector<int> &layer : graph_.layers)
            for (std::size_t i = 0; i < layer.size(); ++i) position_[At(layer[i])] = i;
    }

    // From top to bottom, for the edge that lies `aside` to the right of the chain's middle.
    std::vector<QPointF> Of(const EdgeChain &chain, double aside) const {
        std::vector<QPointF> bends;
        for (const int vertex : chain.passes) {
            const LayerBand &band = bands_[At(graph_.vertices[At(vertex)].layer)];
            bends.emplace_back(columns_[At(vertex)] + aside, band.top);
            if (band.bottom > band.top) bends.emplace_back(columns_[At(vertex)] + aside, band.bottom);
        }
        const QPointF upper = CentreOf(chain.upper), lower = CentreOf(chain.lower);
        const auto first = [&] { return bends.empty() ? lower : bends.front(); };
        const auto last = [&] { return bends.empty() ? upper : bends.back(); };
        const QPointF out(upper.x() + aside, BandOf(chain.upper).bottom);
        const QPointF in(lower.x() + aside, BandOf(chain.lower).top);
        const bool leaves = MeetsBeside(chain.upper, first());
        if (leaves) bends.insert(bends.begin(), out);
        const bool arrives = MeetsBeside(chain.lower, last());
        if (arrives) bends.push_back(in);
        // That has changed the line to the upper box, too.
        if (!leaves && arrives && MeetsBeside(chain.upper, first())) bends.insert(bends.begin(), out);
        if (chain.bends) return bends;
        return WithoutNeedless(upper, std::move(bends), lower);
    }

private:
    const LayerBand &BandOf(int vertex) const { return bands_[At(graph_.vertices[At(vertex)].layer)]; }
    QPointF CentreOf(int vertex) const {
        return {columns_[At(vertex)], (BandOf(vertex).top + BandOf(vertex).bottom) / 2};
    }
    // Whether the line from the box's middle to a point outside of its layer comes, within the layer, to the
    // next vertex: it would meet a box or cross an edge there.
    bool MeetsBeside(int vertex, const QPointF &to) const {
        const QPointF from = CentreOf(vertex);
        const std::vector<int> &layer = graph_.layers[At(graph_.vertices[At(vertex)].layer)];
        const int step = to.x() < from.x() ? -1 : 1;
        const auto next = std::ptrdiff_t(position_[At(vertex)]) + step;
        if (next < 0 || next >= std::ptrdiff_t(layer.size()) || to.y() == from.y()) return false;
        const LayerVertex &beside = graph_.vertices[At(layer[std::size_t(next)])];
        // Where the line comes to the near side of what stands there.
        const double side = columns_[At(layer[std::size_t(next)])] - step * (beside.width / 2 + kNear);
        const double share = (side - from.x()) / (to.x() - from.x());
        if (!(share >= 0 && share <= 1)) return false;
        return std::abs(share * (to.y() - from.y())) <
               (BandOf(vertex).bottom - BandOf(vertex).top) / 2 + kNear;
    }
    static bool IsNeedless(const QPointF &before, const QPointF &at, const QPointF &after) {
        const QPointF way = after - before, off = at - before;
        const double length = std::hypot(way.x(), way.y());
        return length < kStraight || std::abs(way.x() * off.y() - way.y() * off.x()) / length < kStraight;
    }
    static std::vector<QPointF> WithoutNeedless(const QPointF &from, std::vector<QPointF> bends,
                                                const QPointF &to) {
        std::vector<QPointF> kept;
        for (std::size_t i = 0; i < bends.size(); ++i) {
            const QPointF &before = kept.empty() ? from : kept.back();
            if (!IsNeedless(before, bends[i], i + 1 < bends.size() ? bends[i + 1] : to))
                kept.push_back(bends[i]);
        }
        return kept;
    }

    const LayerGraph &graph_;
    const std::vector<double> &columns_;
    const std::vector<LayerBand> &bands_;
    std::vector<std::size_t> position_;
};

} // namespace

std::vector<std::vector<QPointF>> BendsOf(const LayeredPart &part, const std::vector<LayoutEdge> &edges,
                                          const std::vector<double> &columns,
                                          const std::vector<LayerBand> &bands) {
    std::vector<std::vector<QPointF>> bends(edges.size());
    const Bending bending(part, columns, bands);
    for (const EdgeChain &chain : part.chains) {
        for (std::size_t i = 0; i < chain.edges.size(); ++i) {
            std::vector<QPointF> &edge = bends[At(chain.edges[i])];
            edge = bending.Of(chain, chain.asides[i]);
            if (edges[At(chain.edges[i])].from == chain.lower) std::ranges::reverse(edge);
        }
    }
    return bends;
}

} // namespace diagram
