// The hidden node "DIAGRAM", which brings a slice's background along in a surface file.
#pragma once

namespace diagram {
class Node;
class Surface;
} // namespace diagram

namespace templates {

// Finds the node or makes it, hidden, and gives it the picture and the colour of the surface's background.
diagram::Node &PutDiagramNode(diagram::Surface &flow);
// Gives the surface the background that the node carries, and removes the node. Does nothing without one.
void TakeDiagramNode(diagram::Surface &flow);

} // namespace templates
