// Random diagrams, the same at each call.
#pragma once

namespace diagram {
class Surface;
}

namespace bench {

// For routing: a grid of nodes of different sizes, in which some are left out, and 40 links of the style from
// anywhere to anywhere; kAutomaticStyle gives each link the best one. Another diagram for each seed.
void FillGenerated(diagram::Surface &surface, unsigned seed, int style);

// For layouts, with all nodes in one place: like a plan, where each node hangs below one of the 40 before it;
// three links to ten nodes more lead downwards.
void FillPlan(diagram::Surface &surface, int nodes);
// The same with 13 links to ten nodes from anywhere to anywhere: many layers, and links that pass most of
// them.
void FillAnyhow(diagram::Surface &surface, int nodes);

} // namespace bench
