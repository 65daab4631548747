// The order within layers while it is worked at.
#pragma once

#include "diagram/layout/EdgeLists.h"
#include "diagram/layout/LayerGraph.h"

#include <span>
#include <vector>

namespace diagram {

// The neighbours of each vertex in one of the two directions, in an order that follows that of their layer.
class LayerNeighbours {
public:
    LayerNeighbours(const LayerGraph &graph, int LayerEdge::*end, int LayerEdge::*other);
    std::span<const int> Of(int vertex) const {
        const std::size_t from = start_[std::size_t(vertex)], to = start_[std::size_t(vertex) + 1];
        return {vertices_.data() + from, to - from};
    }
    void Sort(int vertex, const int *position); // of all vertices

private:
    std::vector<std::size_t> start_;
    std::vector<int> vertices_;
};

// The vertices' positions, kept in step with the layers.
class LayerPlaces {
public:
    explicit LayerPlaces(const LayerGraph &graph);

    const std::vector<std::vector<int>> &Layers() const { return layers_; }
    void Assign(const std::vector<std::vector<int>> &layers);
    void AssignLayer(int layer, const std::vector<int> &vertices);
    std::span<const int> Above(int vertex) const { return above_.Of(vertex); }
    std::span<const int> Below(int vertex) const { return below_.Of(vertex); }
    int Position(int vertex) const { return position_[std::size_t(vertex)]; }

    // The vertex's neighbours into the order of their layers: needed before Gain.
    void SortNeighbours(int vertex) {
        above_.Sort(vertex, position_.data()), below_.Sort(vertex, position_.data());
    }
    // Crossings that go when a vertex and the next one of its layer change places.
    int Gain(int vertex, int next) const;
    void SwapWithNext(int layer, std::size_t place);
    long long Crossings();

private:
    long long CrossingsBelow(int layer);

    std::vector<std::vector<int>> layers_;
    LayerNeighbours above_, below_;
    std::vector<int> position_;
    std::vector<int> sums_; // for counting
};

} // namespace diagram
