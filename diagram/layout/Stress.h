// Places whose distances come near to given ones.
#pragma once

#include "diagram/layout/Parts.h"

namespace diagram {

// Where the distance of two boxes should be.
struct StressTerm {
    int other;
    float distance;
    float weight;
};
// The terms of each box.
using StressTerms = std::vector<std::vector<StressTerm>>;

// How long a way along edges is: its edges, and by how much its two ends are larger than the mean box.
struct StressLengths {
    double edge = 1;
    std::vector<double> extra; // of each box
};

// Of each box to all others.
StressTerms AllTerms(const Adjacency &neighbours, const StressLengths &lengths, Progress &progress);
// Of each box to its neighbours and to `pivots` boxes spread over the part, each of which stands for those
// around it.
StressTerms PivotTerms(const Adjacency &neighbours, const StressLengths &lengths, int pivots,
                       Progress &progress);

// Places to begin with: U. Brandes and C. Pich, "Eigensolver Methods for Progressive Multidimensional Scaling
// of Large Data", Graph Drawing 2006. No two are the same.
std::vector<QPointF> PivotPlaces(const Adjacency &neighbours, double edge);

// Moves the places until they hardly move any more.
void Majorize(const StressTerms &terms, std::vector<QPointF> &places, double edge, Progress &progress);

} // namespace diagram
