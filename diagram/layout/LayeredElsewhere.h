// The layered layout in a process of its own, so that a long one can be given up.
#pragma once

#include "diagram/layout/LayoutGraph.h"
#include "diagram/layout/Patience.h"

#include <optional>

namespace diagram {

constexpr long kErrNotLaidOut = 20002;

// As Layered; nothing when it was given up. Error 53 "File not found: 'velmora-layout'" when the program is
// missing, 20002 "The diagram could not be laid out" when it fails.
std::optional<std::vector<QPointF>> LayeredElsewhere(const LayoutGraph &graph, const LayoutOptions &options,
                                                     const GoOn &goOn);

} // namespace diagram
