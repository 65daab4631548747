// Third step of the layered layout: the order within the layers.
#pragma once

#include "diagram/layout/LayerGraph.h"
#include "diagram/layout/Patience.h"

namespace diagram {

// Puts the vertices of each layer into an order with few crossings. Sweeps by barycentres as K. Sugiyama, S.
// Tagawa and M. Toda, "Methods for Visual Understanding of Hierarchical System Structures", IEEE Transactions
// on Systems, Man, and Cybernetics 11(2), 1981, from several orders to start with, the present one first;
// after each sweep neighbours change places while that saves crossings; the best order is refined by sifting
// (C. Matuszewski, R. Schönfeld and P. Molitor, "Using Sifting for k-Layer Straightline Crossing
// Minimization", Graph Drawing 1999). Of equally good orders the first found stands. The same graph always
// gives the same order.
void OrderLayers(LayerGraph &graph, Patience &patience);

// Keeps the present order but for neighbours that save crossings when they change places.
void KeepOrder(LayerGraph &graph, Patience &patience);

// Crossings of edges between neighbouring layers, each pair counted once, in time O(e log v): W. Barth,
// M. Jünger and P. Mutzel, "Simple and Efficient Bilayer Cross Counting", Graph Drawing 2002.
long long CountCrossings(const LayerGraph &graph);

} // namespace diagram
