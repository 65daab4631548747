// Which content a surface has.
#pragma once

#include <cstdint>

namespace diagram {

// Which content a surface has, as far as a map file keeps it: what the steps of undo made of it, and what was
// written outside of them. Undoing a step gives the former one back. Unique in the process.
struct Revision {
    std::uint64_t step = 0, outside = 0;
    friend bool operator==(const Revision &, const Revision &) = default;
};

// A number that was never given before.
std::uint64_t NextRevisionNumber();

} // namespace diagram
