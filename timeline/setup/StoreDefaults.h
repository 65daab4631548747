// What all new maps start with, in the delivered files or in copies of the user's own.
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

// Both give the path of the file that was written.

// Writes the surface with its one node as the default node (`asTemplate`), or as the template of the months.
// Afterwards the node is as it was.
QString StoreDefaultNode(diagram::Surface &surface, diagram::Node &node, bool asTemplate);

// Puts the levels into the empty map, the first of them with that colour.
QString StoreDefaultLevels(const document::cLevels &levels, support::Colour first);

} // namespace timeline
