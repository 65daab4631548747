// Questions to an item, be it a node or a link.
#pragma once

#include "diagram/model/Link.h"
#include "diagram/model/Node.h"

#include <utility>

namespace diagram {

inline bool IsHidden(const Item &item) {
    return item.AsNode() ? item.AsNode()->Hidden() : item.AsLink()->Hidden();
}

// The order of stacking.
inline bool LiesBelow(const Item *a, const Item *b) {
    return std::pair(a->Stack(), a->Id()) < std::pair(b->Stack(), b->Id());
}

} // namespace diagram
