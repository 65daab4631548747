// The values of links as they were before they gave way.
#pragma once

#include "diagram/model/Link.h"

#include <map>

namespace diagram {

struct HeldRoutes {
    std::map<ItemId, LinkData> links; // by identity
};

} // namespace diagram
