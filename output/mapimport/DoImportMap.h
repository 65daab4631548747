// Appending the slices of another map.
#pragma once

#include "output/model/GoOn.h"

#include <QString>
#include <QStringList>

namespace document {
class MapWindow;
}

namespace output {

// Appends the slices of the map file `File` to the window's map, each as a new tab with its caption, and
// selects the last of them. All nodes and links get new keys. Levels and groups are found by their names; a
// node takes the first selected one where this map has none of that name. Attachments and hyperlinks come
// along: hyperlinks within the other map lead to the new slices, relative paths are made full ones. Sets
// Dirty. What could not come is told in a box at the end.
//
// The file is only read, also if it is of an early version or a Jet map. Errors are those of
// document::DoLoad; after one, and after a load that ran short of memory, the window is as it was.
void DoImportMap(document::MapWindow &window, const QString &File);

// The two steps of DoImportMap. BringMap imports without the box; `missing` gets a line for each thing that
// could not come. `goOn` is asked before each slice; when it gives up the window is as it was, and the result
// is false. TellWhatIsMissing shows the box, unless there is nothing to tell.
bool BringMap(document::MapWindow &window, const QString &File, const GoOn &goOn, QStringList &missing);
void TellWhatIsMissing(document::MapWindow &window, QStringList missing);

} // namespace output
