// What all new maps start with, in files beside the program.
#pragma once

#include "support/Colour.h"

namespace diagram {
class Node;
class Surface;
} // namespace diagram
namespace document {
class cLevels;
}

namespace timeline {

// Writes the surface with its one node as the default node, or as the template of the months. The node is as
// it was afterwards.
void StoreDefaultNode(diagram::Surface &surface, diagram::Node &node, bool asTemplate);

// Puts the levels into the empty map, the first of them with that colour.
void StoreDefaultLevels(const document::cLevels &levels, support::Colour first);

} // namespace timeline
