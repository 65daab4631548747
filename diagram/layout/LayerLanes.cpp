#include "diagram/layout/LayerLanes.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace diagram {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr int kNone = -1;

std::size_t At(int i) { return std::size_t(i); }

// Marks of a longest run of numbers that rise from one to the next.
std::vector<char> LongestRise(const std::vector<int> &numbers) {
    std::vector<std::size_t> ends, before(numbers.size()); // ends[k]: of the run of k + 1 with the lowest end
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto at =
            std::ranges::lower_bound(ends, numbers[i], {}, [&](std::size_t k) { return numbers[k]; });
        before[i] = at == ends.begin() ? i : *(at - 1);
        if (at == ends.end()) {
            ends.push_back(i);
        } else {
            *at = i;
        }
    }
    std::vector<char> rises(numbers.size());
    std::size_t at = ends.empty() ? 0 : ends.back();
    for (std::size_t left = ends.size(); left > 0; --left, at = before[at]) rises[at] = 1;
    return rises;
}

} // namespace

LayerLanes::LayerLanes(const LayerGraph &graph, const LayerGaps &gaps)
    : graph_(graph),
      gaps_(gaps),
      laneOf_(graph.vertices.size(), kNone),
      position_(graph.vertices.size()),
      above_(int(graph.vertices.size()), graph.edges, &LayerEdge::to),
      below_(int(graph.vertices.size()), graph.edges, &LayerEdge::from) {
    for (const std::vector<int> &layer : graph.layers)
        for (std::size_t i = 0; i < layer.size(); ++i) position_[At(layer[i])] = i;
    FindLanes();
    FindSteps();
    FindOrder();
}

void LayerLanes::FindLanes() {
    for (int layer = 0; layer < int(graph_.layers.size()); ++layer) {
        for (const int vertex : graph_.layers[At(layer)]) {
            if (laneOf_[At(vertex)] != kNone) continue;
            laneOf_[At(vertex)] = int(lanes_.size());
            lanes_.push_back({vertex});
        }
        JoinBelow(layer, below_);
    }
}

// Of edges that pass this layer and the next one, and cross each other, as many as possible stay straight.
void LayerLanes::JoinBelow(int layer, const EdgeLists &out) {
    std::vector<LayerEdge> inner;
    std::vector<int> ends;
    for (const int vertex : graph_.layers[At(layer)])
        for (const int edge : out.Of(vertex)) {
            const LayerEdge &way = graph_.edges[At(edge)];
            if (!graph_.vertices[At(way.from)].passes || !graph_.vertices[At(way.to)].passes) continue;
            inner.push_back(way), ends.push_back(int(position_[At(way.to)]));
        }
    const std::vector<char> straight = LongestRise(ends);
    for (std::size_t i = 0; i < inner.size(); ++i) {
        if (!straight[i]) continue;
        const int lane = laneOf_[At(inner[i].to)] = laneOf_[At(inner[i].from)];
        lanes_[At(lane)].push_back(inner[i].to);
    }
}

void LayerLanes::FindSteps() {
    for (const std::vector<int> &layer : graph_.layers)
        for (std::size_t i = 1; i < layer.size(); ++i)
            steps_.push_back(
                {laneOf_[At(layer[i - 1])], laneOf_[At(layer[i])],
                 LeastDistance(graph_.vertices[At(layer[i - 1])], graph_.vertices[At(layer[i])], gaps_)});
}

// Also puts the steps into the order of the lanes that they begin at.
void LayerLanes::FindOrder() {
    const EdgeLists next(int(lanes_.size()), steps_, &Step::from);
    std::vector<int> waits(lanes_.size());
    for (const Step &step : steps_) ++waits[At(step.to)];
    for (std::size_t i = 0; i < lanes_.size(); ++i)
        if (waits[i] == 0) order_.push_back(int(i));
    std::vector<Step> ordered;
    for (std::size_t i = 0; i < order_.size(); ++i)
        for (const int step : next.Of(order_[i])) {
            ordered.push_back(steps_[At(step)]);
            if (--waits[At(ordered.back().to)] == 0) order_.push_back(ordered.back().to);
        }
    steps_ = std::move(ordered);
}

// Halfway between the columns of pushing to the right only and of pushing to the left only: both keep the
// distances, and so does the middle.
void LayerLanes::Straighten(std::vector<double> &columns) const {
    std::vector<double> right(lanes_.size()), left;
    for (std::size_t i = 0; i < lanes_.size(); ++i) {
        for (const int vertex : lanes_[i]) right[i] += columns[At(vertex)];
        right[i] /= double(lanes_[i].size());
    }
    left = right;
    for (const Step &step : steps_)
        right[At(step.to)] = std::max(right[At(step.to)], right[At(step.from)] + step.distance);
    for (auto step = steps_.rbegin(); step != steps_.rend(); ++step)
        left[At(step->from)] = std::min(left[At(step->from)], left[At(step->to)] - step->distance);
    for (std::size_t i = 0; i < columns.size(); ++i)
        columns[i] = (left[At(laneOf_[i])] + right[At(laneOf_[i])]) / 2;
}

bool LayerLanes::IsEdge(std::size_t lane) const { return graph_.vertices[At(lanes_[lane].front())].passes; }

LayerLanes::Room LayerLanes::RoomOf(std::size_t lane, const std::vector<double> &columns) const {
    Room room{-kInfinity, kInfinity};
    for (const int vertex : lanes_[lane]) {
        const LayerVertex &mine = graph_.vertices[At(vertex)];
        const std::vector<int> &layer = graph_.layers[At(mine.layer)];
        const std::size_t at = position_[At(vertex)];
        if (at > 0) {
            const int before = layer[at - 1];
            const double distance = LeastDistance(graph_.vertices[At(before)], mine, gaps_);
            room.least = std::max(room.least, columns[At(before)] + distance);
        }
        if (at + 1 < layer.size()) {
            const int after = layer[at + 1];
            const double distance = LeastDistance(mine, graph_.vertices[At(after)], gaps_);
            room.most = std::min(room.most, columns[At(after)] - distance);
        }
    }
    return room;
}

void LayerLanes::MoveTo(std::size_t lane, double column, std::vector<double> &columns) const {
    for (const int vertex : lanes_[lane]) columns[At(vertex)] = column;
}

void LayerLanes::Relax(std::vector<double> &columns) const {
    for (std::size_t lane = 0; lane < lanes_.size(); ++lane) {
        if (!IsEdge(lane)) continue;
        const double upper = columns[At(graph_.edges[At(above_.Of(lanes_[lane].front())[0])].from)];
        const double lower = columns[At(graph_.edges[At(below_.Of(lanes_[lane].back())[0])].to)];
        const Room room = RoomOf(lane, columns);
        const double wish = std::max(std::min((upper + lower) / 2, room.most), room.least);
        MoveTo(lane, wish, columns);
    }
}

void LayerLanes::Snap(std::vector<double> &columns) const {
    for (std::size_t lane = 0; lane < lanes_.size(); ++lane) {
        if (!IsEdge(lane)) continue;
        double first = columns[At(graph_.edges[At(above_.Of(lanes_[lane].front())[0])].from)];
        double second = columns[At(graph_.edges[At(below_.Of(lanes_[lane].back())[0])].to)];
        const double at = columns[At(lanes_[lane].front())];
        if (std::abs(second - at) < std::abs(first - at)) std::swap(first, second);
        const Room room = RoomOf(lane, columns);
        const auto fits = [&](double column) { return room.least <= column && column <= room.most; };
        if (fits(first) || fits(second)) MoveTo(lane, fits(first) ? first : second, columns);
    }
}

} // namespace diagram
