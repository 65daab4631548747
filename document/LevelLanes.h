// Levels as the lanes of a layout.
#pragma once

#include <functional>

namespace diagram {
class Node;
}

namespace document {

class cLevels;

// The position of a node's level in the list as it is now, from 0; -1 for a node without one.
std::function<int(const diagram::Node &node)> LanesByLevel(const cLevels &levels);

} // namespace document
