// The ends of timeline links on their days.
#pragma once

#include <vector>

namespace diagram {
class Link;
class Node;
} // namespace diagram

namespace timeline {

// Puts the end of each of the node's links that joins a day onto the edge of that day: where the link's
// source is a day its first point, else where its destination is one its last; in the latter case the first
// point goes to the outline of the source. Other links stay. `Horizontal`: the strip runs from left to right.
void AdjustLinks(diagram::Node &Node, bool Horizontal);
// The same for nodes of one slice that were moved or have another size, with the arrangement of the slice.
void AdjustLinksOf(const std::vector<diagram::Node *> &nodes);

// Lays the quiet links of nodes of one slice to their days anew, as they have to go round what has moved.
void AdjustDateRoutesOf(const std::vector<diagram::Node *> &nodes);

// Moves the point of that position (from 0) to the middle of the edge of the link's destination that faces
// its source, and keeps the link's points from being routed from then on. The edge is always the
// destination's, also where the day is the source.
void DoAdjustLink(diagram::Link &Link, bool Horizontal, int Index);

} // namespace timeline
