// The revision of a surface: tells whether its content is still that of the last save.
#pragma once

#include <cstdint>

namespace diagram {

// Which content a surface has, as far as a map file keeps it: a number for what the steps of undo made of it,
// and one for what was written outside of steps. Undoing a step gives the former revision back. Unique in the
// process.
struct Revision {
    std::uint64_t step = 0, outside = 0;
    friend bool operator==(const Revision &, const Revision &) = default;
};

// A number that was never given before.
std::uint64_t NextRevisionNumber();

} // namespace diagram
