// The slices of another map behind those of this one.
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
// along: those inside the other map lead to the new slices, paths that hold for the other map's folder are
// written out. Sets Dirty. What could not come is told in a box at the end.
//
// The file is only read, and another version of it or an old Jet map stays what it is. Errors are those of
// document::DoLoad; after one, and after a load that ran short of memory, the window is as it was.
void DoImportMap(document::MapWindow &window, const QString &File);

// The same in two steps, without and with the box. `goOn` is asked before each slice; false gives up and
// leaves the window as it was. False is what comes back then. `missing` is a line for each that could not
// come.
bool BringMap(document::MapWindow &window, const QString &File, const GoOn &goOn, QStringList &missing);
void TellWhatIsMissing(document::MapWindow &window, QStringList missing);

} // namespace output
