// Levels and groups as the lanes and clusters of a layout.
#pragma once

#include <functional>

namespace diagram {
class Node;
}

namespace document {

class cGroups;
class cLevels;

// Gives each node the position of its level in the list as it is now, from 0; -1 for a node without one.
std::function<int(const diagram::Node &node)> LanesByLevel(const cLevels &levels);

// The same for the first of a node's groups that the list has.
std::function<int(const diagram::Node &node)> ClustersByGroup(const cGroups &groups);

// What the hierarchical layout keeps together.
enum class Together { Nothing, Levels, Groups };
// Empty for Together::Nothing.
std::function<int(const diagram::Node &node)> ClustersOf(Together together, const cLevels &levels,
                                                         const cGroups &groups);

} // namespace document
