// What editing the list of slices does to the surfaces, tabs and hyperlinks of a map.
#pragma once

#include "document/cSlice.h"

#include <vector>

namespace document {
class MapWindow;
}

namespace mainwindow {

// One for each tab, in their order.
std::vector<document::cSlice> SlicesOf(document::MapWindow &frm);

// Rebuilds surfaces and tabs so that the slices that aren't deleted stand in the order of their iIndex; those
// without a key are new and empty. Tabs keep their keys, so hyperlinks by key are given the key of the tab at
// which their slice now stands. Undo histories are lost; the map is dirty even when nothing differs.
void RebuildSlices(document::MapWindow &frm, std::vector<document::cSlice> cLayers);

} // namespace mainwindow
