// A file that belongs to a node.
#pragma once

#include <QString>

namespace document {

struct cAttachment {
    QString Key;
    QString Node;       // key of the owning node
    bool Embed = false; // the file's bytes go into the map
    QString Filename;   // for an embedded file after a load its copy in the temporary folder
};

} // namespace document
