// A surface that remembers its steps.
#pragma once

#include "diagram/edit/History.h"
#include "diagram/model/Surface.h"

namespace diagram::testing {

struct Drawn {
    Surface surface;
    Drawn() { AttachHistory(surface); }
    Node &AddNode(float left = 0, float top = 0) { return surface.Nodes().Add(left, top, 1000, 500); }
};

} // namespace diagram::testing
