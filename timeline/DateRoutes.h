// How the links of dates look, and which routes they take from their nodes to the days.
#pragma once

namespace diagram {
class Link;
class Node;
} // namespace diagram

namespace timeline {

// Gives the node's links to days a thin line in the colour in which the months are written, with a dot on the
// day. Their routes are laid by LayDateRoute from then on; links from elsewhere keep what they have.
void DressDateLinks(diagram::Node &node, const diagram::Node &months);

// Lays the route from the node to the link's end, which stays where it is: straight where the day stands
// over, below or beside the node; else with one bend; with two where the route of one bend runs through
// another node and that of two doesn't, or where the node is level with the strip. The link gets the style of
// that route. A node that is met all the same lies above the link from then on. Frames, larger nodes that
// hold others, are not in the way. On surfaces of very many nodes none is looked at. `horizontal`: the strip
// runs from left to right.
void LayDateRoute(diagram::Link &link, bool horizontal);

} // namespace timeline
