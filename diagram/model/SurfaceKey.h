// The parameter of functions that only a surface and its parts (selection, stacking, actions, routing) may
// call.
#pragma once

namespace diagram {

// Only a surface makes one, and hands it to the parts that write to items on its behalf.
class SurfaceKey {
    friend class Surface;
    constexpr SurfaceKey() = default;
};

} // namespace diagram
