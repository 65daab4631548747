// A file that belongs to a node.
#pragma once

#include <QString>

namespace document {

// The row of a map file that holds the bytes of an embedded attachment.
struct StoredAttachment {
    QString Map; // full path; empty for none
    QString Key, NodeKey, Filename;
    int Position = 0; // among the rows that have these three texts
};

struct cAttachment {
    QString Key;
    QString Node;            // key of the owning node
    bool Embed = false;      // the file's bytes go into the map
    QString Filename;        // for an embedded file after a load its copy in the window's own folder
    StoredAttachment Stored; // where the bytes were last read from or written to
};

} // namespace document
