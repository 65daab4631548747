// A slice as a text file of columns.
#pragma once

#include "output/model/GoOn.h"

#include <QSet>
#include <QString>

namespace diagram {
class Surface;
}
namespace document {
class MapWindow;
}

namespace output {

// Writes the slice of `Flow` to `File`: the columns Type, those of the table of nodes and those of the table
// of links that the former has not; a row for each node, then one for each link, as the map's file holds
// them. Asks to save when the map has no file or holds what its file doesn't; nothing is written when the
// user says no, and false is what comes back. The whole slice is written whatever the filter hides, but for
// the nodes whose keys stand in `without`, and their links. `goOn` is asked at each some hundred rows; false
// gives up, and false is what comes back then, too.
//
// The file is replaced as a whole or stays as it was. Errors are those of the storage and of
// support::AtomicFile, and 75 where the map itself would be replaced.
bool ExportMap(document::MapWindow &window, diagram::Surface &Flow, const QString &File,
               const QSet<QString> &without = {}, const GoOn &goOn = {});

// What a slice has that such a file doesn't carry, as a sentence for the status bar.
QString NotInTextFiles();

} // namespace output
