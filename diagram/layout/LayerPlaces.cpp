#include "diagram/layout/LayerPlaces.h"

#include "diagram/layout/LayeredOrder.h"

#include <algorithm>

namespace diagram {

namespace {

constexpr std::ptrdiff_t kLong = 24; // with more neighbours, sorting by insertion is slower

// Of the pairs of neighbours, those that cross with a before b, less those that cross with b before a.
int Surplus(std::span<const int> a, std::span<const int> b, const int *position) {
    if (a.empty() || b.empty()) return 0;
    const int pairs = int(a.size() * b.size());
    if (position[a.back()] < position[b.front()]) return -pairs;
    if (position[b.back()] < position[a.front()]) return pairs;
    int surplus = 0;
    std::size_t left = 0, upTo = 0;
    for (const int neighbour : a) {
        const int at = position[neighbour];
        while (left < b.size() && position[b[left]] < at) ++left;
        upTo = std::max(upTo, left);
        while (upTo < b.size() && position[b[upTo]] == at) ++upTo;
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

// Lists are short and mostly sorted already.
void LayerNeighbours::Sort(int vertex, const int *position) {
    int *first = vertices_.data() + start_[std::size_t(vertex)];
    int *last = vertices_.data() + start_[std::size_t(vertex) + 1];
    if (last - first > kLong)
        return std::sort(first, last, [position](int a, int b) { return position[a] < position[b]; });
    for (int *next = first + 1; next < last; ++next) {
        const int one = *next, at = position[one];
        int *place = next;
        for (; place > first && at < position[place[-1]]; --place) *place = place[-1];
        *place = one;
    }
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

int LayerPlaces::Gain(int vertex, int next) const {
    const int *position = position_.data();
    return Surplus(Above(vertex), Above(next), position) + Surplus(Below(vertex), Below(next), position);
}

void LayerPlaces::SwapWithNext(int layer, std::size_t place) {
    std::vector<int> &vertices = layers_[std::size_t(layer)];
    std::swap(vertices[place], vertices[place + 1]);
    std::swap(position_[std::size_t(vertices[place])], position_[std::size_t(vertices[place + 1])]);
}

// A binary indexed tree: its sums tell how many of the edges counted so far end further to the right.
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
