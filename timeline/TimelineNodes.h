// Which nodes of a surface belong to its timeline.
#pragma once

#include <QString>
#include <vector>

namespace diagram {
class Node;
class Surface;
} // namespace diagram

namespace timeline {

// How often `Find` stands in `Text`, without overlap; letters count as they are written. 0 for an empty Find.
int CountOccurencies(const QString &Text, const QString &Find);

// The month nodes, hidden ones too, in the order of adding: nodes that cannot be selected, are marked, and
// whose text holds just one "-" or just one blank.
std::vector<diagram::Node *> LocateTimelineNodes(const diagram::Surface &Flow);

// Whether the node stands for a day: hidden, marked, not to be selected.
bool NodeIsTimeline(const diagram::Node &Node);

} // namespace timeline
