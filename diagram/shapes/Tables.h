// The small tables of names: stored value and the text that the user reads, exactly.
#pragma once

#include <span>

namespace diagram {

struct NamedValue {
    int value;
    const char *name;
};

std::span<const NamedValue> OrientationTable(); // 0 to 3
std::span<const NamedValue> LineStyleTable();   // DrawStyle, 0 to 6
std::span<const NamedValue> AlignmentTable();   // 0 to 8
std::span<const NamedValue> PicturePosTable();  // 0 to 9
std::span<const NamedValue> ShadowTable();      // 0 to 4
std::span<const NamedValue> AutoSizeTable();    // 0 to 3
std::span<const NamedValue> ArrowSizeTable();   // 0 to 2
std::span<const NamedValue> JumpStyleTable();   // 0 to 2

} // namespace diagram
