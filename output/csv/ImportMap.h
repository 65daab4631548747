// Reading a text file of columns into a slice.
#pragma once

#include "output/model/GoOn.h"

#include <QString>

namespace diagram {
class Surface;
}
namespace document {
class MapWindow;
}

namespace output {

// Adds the nodes and links of the file, made by ExportMap or saved again by a spreadsheet, to what `Flow`
// holds: one step of undo. Nodes get new keys, and the links of the file stay with them; levels and groups
// are found by their names. Lays the timeline out and sets Dirty.
//
// True when the file was imported; false when `goOn`, which is asked every few hundred rows, gives up.
//
// All or nothing: giving up or an error leaves the surface as it was. A column that the file lacks is 3265
// "Item not found in this collection.", one that it has twice 3191, quotes that never close and the like
// 3274. With the row and the column: 5 "Invalid procedure call or argument" for the end of a link that is no
// node above it and none of the surface, 6 "Overflow", 13 "Type mismatch", 94 "Invalid use of Null" for an
// empty cell where a number belongs, 380 "Invalid property value", 457 for a key of a node that is there
// twice.
bool ImportMap(document::MapWindow &window, diagram::Surface &Flow, const QString &File,
               const GoOn &goOn = {});

} // namespace output
