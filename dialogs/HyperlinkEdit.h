// What the hyperlink page of the node dialog does to a node's hyperlink, and what it reads of maps.
#pragma once

#include "document/cHyperlink.h"

#include <optional>
#include <vector>

namespace diagram {
class Node;
}
namespace document {
class MapWindow;
}

namespace dialogs {

// The controls of the page.
struct HyperlinkEdit {
    bool chkHyperlink = false;
    QString Map;              // the path in the label, whichever option is on
    std::optional<int> Slice; // what the current entry of the list stands for; none without one
};

// Removes the first hyperlink of the node. With the tick and a slice the node gets a new one and its tag
// HYPER becomes "Yes", else "No". One that leads where the former led keeps its destination node and the key
// of its slice. A node without a key gets one; the map is marked.
void ApplyHyperlink(document::MapWindow &window, diagram::Node &oNode, const HyperlinkEdit &edit);

// The hyperlinks of the node, in the order of the pool.
std::vector<document::cHyperlink> HyperlinksOf(document::MapWindow &window, const diagram::Node &oNode);

// An entry of the list of slices.
struct LinkSlice {
    QString text;
    int index = 0; // as cHyperlink::Slice counts
    friend bool operator==(const LinkSlice &, const LinkSlice &) = default;
};

// The tabs of the window, counted from 1.
std::vector<LinkSlice> SlicesOfThisMap(document::MapWindow &window);
// The slices of the map of that path, by their stored Index. The file is only read; one that has moved with
// the window's map is found (document/WhereItIs.h). Errors are the engine's.
std::vector<LinkSlice> SlicesOfMap(document::MapWindow &window, const QString &map);
// The position, from 1, of the tab to which a hyperlink within this map leads; its Slice where its key names
// no tab.
int PositionOf(document::MapWindow &window, const document::cHyperlink &hyperlink);

} // namespace dialogs
