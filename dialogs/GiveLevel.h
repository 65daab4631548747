// Which nodes of a map have a level, and giving them another one.
#pragma once

#include <QHash>
#include <QSet>
#include <QString>

namespace document {
class MapWindow;
struct cLevel;
} // namespace document

namespace dialogs {

// How many nodes have each level, on all slices; by the level's key.
QHash<QString, int> NodesByLevel(document::MapWindow &window);

// Gives the nodes that have one of the levels `from` (keys) the level `to` and its colour: a step of undo on
// each slice that has such a node. The map is dirty if there is any.
void GiveLevel(document::MapWindow &window, const QSet<QString> &from, const document::cLevel &to);

} // namespace dialogs
