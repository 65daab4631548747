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

// Writes the slice of `Flow` to `File`: the columns are those of ColumnsOfMap (CsvColumns.h), with a row for
// each node and then one for each link, as the map's file holds them. The whole slice is written whatever the
// filter hides, except for the nodes whose keys are in `without`, and their links.
//
// First asks to save a map that has no file or differs from it. True when the file was written; false when
// the user doesn't want to save, and when `goOn`, which is asked every few hundred rows, gives up.
//
// The file is replaced as a whole or stays as it was. Errors are those of the storage and of
// support::AtomicFile, and 75 where the map itself would be replaced.
bool ExportMap(document::MapWindow &window, diagram::Surface &Flow, const QString &File,
               const QSet<QString> &without = {}, const GoOn &goOn = {});

// A sentence for the status bar that says what of a slice such a file doesn't carry.
QString NotInTextFiles();

} // namespace output
