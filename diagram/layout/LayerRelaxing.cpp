#include "diagram/layout/LayerRelaxing.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace diagram {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kPull[] = {1, 2, 8}; // of an edge of which none, one, both ends pass a layer

std::size_t At(int i) { return std::size_t(i); }

// The middle of the outermost ones.
std::optional<double> MiddleOf(const LayerGraph &graph, std::span<const int> edges, int LayerEdge::*end,
                               const std::vector<double> &columns) {
    if (edges.empty()) return std::nullopt;
    double least = kInfinity, most = -kInfinity;
    for (const int edge : edges) {
        const double at = columns[At(graph.edges[At(edge)].*end)];
        least = std::min(least, at), most = std::max(most, at);
    }
    return (least + most) / 2;
}

} // namespace

LayerRelaxing::LayerRelaxing(const LayerGraph &graph, const LayerGaps &gaps)
    : graph_(graph),
      gaps_(gaps),
      out_(int(graph.vertices.size()), graph.edges, &LayerEdge::from),
      in_(int(graph.vertices.size()), graph.edges, &LayerEdge::to) {}

// Stretches of vertices that move end at those that don't.
void LayerRelaxing::Layer(int layer, Relax how, std::vector<double> &columns) {
    const std::vector<int> &row = graph_.layers[At(layer)];
    offset_.assign(row.size(), 0);
    for (std::size_t i = 1; i < row.size(); ++i)
        offset_[i] = offset_[i - 1] +
                     LeastDistance(graph_.vertices[At(row[i - 1])], graph_.vertices[At(row[i])], gaps_);
    double least = -kInfinity;
    for (std::size_t first = 0; first < row.size();) {
        std::size_t last = first;
        while (last < row.size() && (how == Relax::All || !graph_.vertices[At(row[last])].passes)) ++last;
        const double most = last < row.size() ? columns[At(row[last])] - offset_[last] : kInfinity;
        Stretch(row, first, last, least, most, how, columns);
        least = most, first = last + 1;
    }
}

void LayerRelaxing::Stretch(const std::vector<int> &layer, std::size_t first, std::size_t last, double least,
                            double most, Relax how, std::vector<double> &columns) {
    pools_.clear();
    for (std::size_t i = first; i < last; ++i) {
        const Wish wish = WishOf(layer[i], how, columns);
        Add({wish.at - offset_[i], wish.weight}, i + 1);
    }
    std::size_t i = first;
    for (const Pool &pool : pools_)
        for (; i < pool.end; ++i)
            columns[At(layer[i])] = std::max(std::min(pool.Value(), most), least) + offset_[i];
}

void LayerRelaxing::Add(const Wish &wish, std::size_t end) {
    pools_.push_back({wish.at * wish.weight, wish.weight, end});
    while (pools_.size() > 1 && pools_[pools_.size() - 2].Value() > pools_.back().Value()) {
        const Pool last = pools_.back();
        pools_.pop_back();
        pools_.back() = {pools_.back().sum + last.sum, pools_.back().weight + last.weight, last.end};
    }
}

LayerRelaxing::Wish LayerRelaxing::Drawn(int vertex, const std::vector<double> &columns) const {
    double sum = 0, weight = 0;
    const auto pull = [&](int other) {
        const bool passes = graph_.vertices[At(vertex)].passes,
                   otherPasses = graph_.vertices[At(other)].passes;
        const double force = kPull[int(passes) + int(otherPasses)];
        sum += force * columns[At(other)], weight += force;
    };
    for (const int edge : out_.Of(vertex)) pull(graph_.edges[At(edge)].to);
    for (const int edge : in_.Of(vertex)) pull(graph_.edges[At(edge)].from);
    return weight > 0 ? Wish{sum / weight, weight} : Wish{columns[At(vertex)], 1};
}

LayerRelaxing::Wish LayerRelaxing::WishOf(int vertex, Relax how, const std::vector<double> &columns) const {
    if (how != Relax::OverBelow) return Drawn(vertex, columns);
    const auto below = MiddleOf(graph_, out_.Of(vertex), &LayerEdge::to, columns);
    return {below.value_or(columns[At(vertex)]), 1};
}

} // namespace diagram
