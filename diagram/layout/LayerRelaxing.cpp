#include "diagram/layout/LayerRelaxing.h"

#include <algorithm>
#include <limits>

namespace diagram {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kStraight = 8;    // pull of an edge along the layers that it passes
constexpr double kLongPull = 0.25; // of its ends: what is near keeps its line

std::size_t At(int i) { return std::size_t(i); }

} // namespace

LayerRelaxing::LayerRelaxing(const LayerGraph &graph, const LayerGaps &gaps)
    : graph_(graph),
      gaps_(gaps),
      out_(int(graph.vertices.size()), graph.edges, &LayerEdge::from),
      in_(int(graph.vertices.size()), graph.edges, &LayerEdge::to),
      isLong_(graph.vertices.size()) {
    for (const LayerEdge &edge : graph.edges)
        if (!IsBox(edge.from) && !IsBox(edge.to)) isLong_[At(edge.from)] = isLong_[At(edge.to)] = 1;
}

bool LayerRelaxing::IsBox(int vertex) const { return !graph_.vertices[At(vertex)].passes; }

double LayerRelaxing::PullOf(int vertex, int other) const {
    if (isLong_[At(vertex)] && isLong_[At(other)]) return kStraight;
    return isLong_[At(vertex)] || isLong_[At(other)] ? kLongPull : 1;
}

// Stretches of vertices that move end at those that don't.
void LayerRelaxing::Layer(int layer, Relax how, std::vector<double> &columns) {
    row_ = graph_.layers[At(layer)];
    if (how == Relax::Freely) std::erase_if(row_, [&](int vertex) { return isLong_[At(vertex)] != 0; });
    const std::vector<int> &row = row_;
    offset_.assign(row.size(), 0);
    for (std::size_t i = 1; i < row.size(); ++i)
        offset_[i] = offset_[i - 1] +
                     LeastDistance(graph_.vertices[At(row[i - 1])], graph_.vertices[At(row[i])], gaps_);
    double least = -kInfinity;
    for (std::size_t first = 0; first < row.size();) {
        std::size_t last = first;
        while (last < row.size() && (how == Relax::All || !isLong_[At(row[last])])) ++last;
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
        const double force = PullOf(vertex, other);
        sum += force * columns[At(other)], weight += force;
    };
    for (const int edge : out_.Of(vertex)) pull(graph_.edges[At(edge)].to);
    for (const int edge : in_.Of(vertex)) pull(graph_.edges[At(edge)].from);
    return weight > 0 ? Wish{sum / weight, weight} : Wish{columns[At(vertex)], 1};
}

// Of the leftmost and the rightmost neighbour below; long edges don't count.
double LayerRelaxing::MiddleBelow(int vertex, const std::vector<double> &columns) const {
    double least = kInfinity, most = -kInfinity;
    for (const int edge : out_.Of(vertex)) {
        const int below = graph_.edges[At(edge)].to;
        if (isLong_[At(below)]) continue;
        least = std::min(least, columns[At(below)]), most = std::max(most, columns[At(below)]);
    }
    return least <= most ? (least + most) / 2 : columns[At(vertex)];
}

LayerRelaxing::Wish LayerRelaxing::WishOf(int vertex, Relax how, const std::vector<double> &columns) const {
    if (how == Relax::All || how == Relax::Short) return Drawn(vertex, columns);
    return {MiddleBelow(vertex, columns), 1};
}

} // namespace diagram
