#include "diagram/layout/LayerPlaces.h"

#include "diagram/layout/LayeredOrder.h"

#include <algorithm>

namespace diagram {

namespace {

// Of the pairs of neighbours, those that cross with a before b, less those that cross with b before a.
int Surplus(std::span<const int> a, std::span<const int> b, const std::vector<int> &position) {
    int surplus = 0;
    std::size_t left = 0, upTo = 0;
    for (const int neighbour : a) {
        const int at = position[std::size_t(neighbour)];
        while (left < b.size() && position[std::size_t(b[left])] < at) ++left;
        upTo = std::max(upTo, left);
        while (upTo < b.size() && position[std::size_t(b[upTo])] == at) ++upTo;
        surplus += int(left) - int(b.size() - upTo);
    }
    return surplus;
}

} // namespace

LayerNeighbours::LayerNeighbours(const LayerGraph &graph, int LayerEdge::*end, int LayerEdge::*other) {
    const EdgeLists lists(int(graph.vertices.size()), graph.edges, end);
    start_.push_back(0);
    for (int vertex = 0; vertex < int(graph.vertices.size()); ++vertex) {
        for (const int edge : lists.Of(vertex)) vertices_.push_back(graph.edges[std::size_t(edge)].*other);
        start_.push_back(vertices_.size());
    }
}

void LayerNeighbours::Sort(int vertex, const std::vector<int> &position) {
    const auto first = vertices_.begin() + std::ptrdiff_t(start_[std::size_t(vertex)]);
    const auto last = vertices_.begin() + std::ptrdiff_t(start_[std::size_t(vertex) + 1]);
    if (last - first < 2) return;
    std::sort(first, last, [&](int a, int b) { return position[std::size_t(a)] < position[std::size_t(b)]; });
}

LayerPlaces::LayerPlaces(const LayerGraph &graph)
    : above_(graph, &LayerEdge::to, &LayerEdge::from),
      below_(graph, &LayerEdge::from, &LayerEdge::to),
      position_(graph.vertices.size()) {
    Assign(graph.layers);
}

void LayerPlaces::Assign(const std::vector<std::vector<int>> &layers) {
    layers_.resize(layers.size());
    for (std::size_t i = 0; i < layers.size(); ++i) AssignLayer(int(i), layers[i]);
}

void LayerPlaces::AssignLayer(int layer, const std::vector<int> &vertices) {
    layers_[std::size_t(layer)] = vertices;
    for (std::size_t i = 0; i < vertices.size(); ++i) position_[std::size_t(vertices[i])] = int(i);
}

void LayerPlaces::SortNeighbours(int layer) {
    for (const int vertex : layers_[std::size_t(layer)])
        above_.Sort(vertex, position_), below_.Sort(vertex, position_);
}

int LayerPlaces::Gain(int vertex, int next) const {
    return Surplus(Above(vertex), Above(next), position_) + Surplus(Below(vertex), Below(next), position_);
}

void LayerPlaces::SwapWithNext(int layer, std::size_t place) {
    std::vector<int> &vertices = layers_[std::size_t(layer)];
    std::swap(vertices[place], vertices[place + 1]);
    std::swap(position_[std::size_t(vertices[place])], position_[std::size_t(vertices[place + 1])]);
}

// The tree's sums tell how many edges counted so far end to the right.
long long LayerPlaces::CrossingsBelow(int layer) {
    const std::size_t size = layers_[std::size_t(layer) + 1].size();
    sums_.assign(size + 1, 0);
    long long crossings = 0;
    for (const int vertex : layers_[std::size_t(layer)]) {
        for (const int neighbour : Below(vertex))
            for (std::size_t i = std::size_t(Position(neighbour)) + 2; i <= size; i += i & (~i + 1))
                crossings += sums_[i];
        for (const int neighbour : Below(vertex))
            for (std::size_t i = std::size_t(Position(neighbour)) + 1; i > 0; i -= i & (~i + 1)) ++sums_[i];
    }
    return crossings;
}

long long LayerPlaces::Crossings() {
    long long crossings = 0;
    for (int layer = 0; layer + 1 < int(layers_.size()); ++layer) crossings += CrossingsBelow(layer);
    return crossings;
}

long long CountCrossings(const LayerGraph &graph) { return LayerPlaces(graph).Crossings(); }

} // namespace diagram
