// A small map from a number: what routes are counted on.
#pragma once

namespace diagram {
class Surface;
}

namespace bench {

// Rows and columns of nodes with gaps, some of them left out, and links of a style, or each of the best one,
// from anywhere to anywhere.
void FillGenerated(diagram::Surface &surface, unsigned seed, int style);

} // namespace bench
