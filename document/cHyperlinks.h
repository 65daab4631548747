// The hyperlinks of a map, at most one a node.
#pragma once

#include "document/cHyperlink.h"
#include "document/KeyedCollection.h"

namespace document {

class cHyperlinks : public Pool<cHyperlink> {
public:
    // A new hyperlink under `key`; an empty key is filled with a new GUID first. Error 457 for a key that is
    // taken.
    cHyperlink &add(QString &key);
};

} // namespace document
