// How often links between bars beside the strip cross.
#pragma once

#include "timeline/RowPlan.h"

namespace timeline {

// Straight ones, between the middles of the bars; two that share a bar don't cross.
int CountCrossings(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links,
                   const std::vector<double> &middles);
// Counts up how many pairs of links were compared.
int CountCrossings(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links,
                   const std::vector<double> &middles, long &pairs);

} // namespace timeline
