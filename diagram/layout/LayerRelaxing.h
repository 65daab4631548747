// Layers relax: each vertex is drawn towards those that it is joined with.
#pragma once

#include "diagram/layout/EdgeLists.h"
#include "diagram/layout/LayeredColumns.h"

namespace diagram {

// Which vertices move, and to where. An edge is long if it passes several layers.
enum class Relax {
    All,       // all; long edges are drawn straight above all
    Short,     // all but long edges
    OverBelow, // all but long edges, each to the middle of its neighbours below; without any it stays
    Freely     // the same, and through long edges in their way
};

class LayerRelaxing {
public:
    // Both must outlive it.
    LayerRelaxing(const LayerGraph &graph, const LayerGaps &gaps);

    // The best places of a layer's vertices while all others stay: J. B. Kruskal, "Nonmetric Multidimensional
    // Scaling: A Numerical Method", Psychometrika 29, 1964, pools neighbours that get into each other's way.
    void Layer(int layer, Relax how, std::vector<double> &columns);

private:
    struct Wish {
        double at, weight;
    };
    struct Pool {
        double sum, weight;
        std::size_t end; // of its vertices in the stretch
        double Value() const { return sum / weight; }
    };

    void Stretch(const std::vector<int> &layer, std::size_t first, std::size_t last, double least,
                 double most, Relax how, std::vector<double> &columns);
    void Add(const Wish &wish, std::size_t end);
    Wish WishOf(int vertex, Relax how, const std::vector<double> &columns) const;
    Wish Drawn(int vertex, const std::vector<double> &columns) const;
    bool IsBox(int vertex) const;
    double PullOf(int vertex, int other) const;
    double MiddleBelow(int vertex, const std::vector<double> &columns) const;

    const LayerGraph &graph_;
    LayerGaps gaps_;
    EdgeLists out_, in_;
    std::vector<char> isLong_; // vertices where an edge passes that passes others, too
    std::vector<int> row_;
    std::vector<double> offset_;
    std::vector<Pool> pools_;
};

} // namespace diagram
