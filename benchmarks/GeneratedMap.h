// Maps from a number: what routes are counted on, and what is laid out.
#pragma once

namespace diagram {
class Surface;
}

namespace bench {

// Rows and columns of nodes with gaps, some of them left out, and links of a style, or each of the best one,
// from anywhere to anywhere.
void FillGenerated(diagram::Surface &surface, unsigned seed, int style);

// Each node hangs below one of the 40 before it, and three in ten more links go downwards, as plans do. All
// stand in one place.
void FillPlan(diagram::Surface &surface, int nodes);
// Any node is linked with any other: many layers, and links that pass most of them.
void FillAnyhow(diagram::Surface &surface, int nodes);

} // namespace bench
