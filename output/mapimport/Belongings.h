// What nodes of another map have besides themselves: hyperlinks and attachments.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace document {
class MapWindow;
}

namespace output {

// Keys of the other map's nodes, and which they have in this one.
using NewKeys = QHash<QString, QString>;

// Both add to this map's pools what the other's hold of the nodes that have come; `firstTab` is the first of
// the new tabs. They give a line for each that could not come.
QStringList BringHyperlinks(document::MapWindow &window, document::MapWindow &other, const NewKeys &keys,
                            int firstTab);
QStringList BringAttachments(document::MapWindow &window, document::MapWindow &other, const NewKeys &keys);

// A line for each level and group that nodes of the other map have and this map lacks.
QStringList MissingNames(document::MapWindow &window, document::MapWindow &other);

} // namespace output
