// What belongs to the nodes of another map: hyperlinks, attachments, levels and groups.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace document {
class MapWindow;
}

namespace output {

// The key in this map for the key that a node has in the other one.
using NewKeys = QHash<QString, QString>;

// Both add to this map's pools what the other map's pools hold for the nodes in `keys`, and give a line for
// each item that could not come. `firstTab` is the first of the new tabs.
QStringList BringHyperlinks(document::MapWindow &window, document::MapWindow &other, const NewKeys &keys,
                            int firstTab);
QStringList BringAttachments(document::MapWindow &window, document::MapWindow &other, const NewKeys &keys);

// A line for each level and group that nodes of the other map have and this map lacks.
QStringList MissingNames(document::MapWindow &window, document::MapWindow &other);

} // namespace output
