// A node's link to a slice of this map or of another.
#pragma once

#include <cstdint>
#include <QString>

namespace document {

struct cHyperlink {
    QString Key;            // in the collection: the owning node's key
    QString DestNode;       // key of the destination node, or empty
    QString SliceKey;       // key of the destination tab, set by loading alone
    std::int16_t Slice = 0; // with Map empty the tab's position from 1, else the Index in the other map
    QString Map;            // path of the map to open; empty for this one
    QString Node;           // key of the node that owns the link
};

} // namespace document
