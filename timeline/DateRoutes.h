// How the links of dates look, and which way they take from their nodes to the days.
#pragma once

namespace diagram {
class Link;
class Node;
} // namespace diagram

namespace timeline {

// Gives the node's links to days a thin line in the colour in which the months are written, with a dot on the
// day. Their routes are laid by LayDateWay from then on; links from elsewhere keep what they have.
void DressDateLinks(diagram::Node &node, const diagram::Node &months);

// From the node to where the link ends, which stays: straight where the day stands over, below or beside the
// node, else with one bend, or two where that route runs through another node and they don't, or where the
// node is level with the strip. The style is the one that says so. A node that is met all the same lies above
// the link from then on, but for frames, larger nodes that hold others: these are not in the way. Surfaces of
// very many nodes are not looked through.
void LayDateRoute(diagram::Link &link, bool horizontal);

} // namespace timeline
