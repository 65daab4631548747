// From a path to an open map file.
#pragma once

#include "storage/Database.h"

#include <optional>
#include <QString>

namespace document {

// Opens the map `sFile`; asks for a path where that is empty and gives it back through the argument. With
// bNew an existing file is deleted first and the empty map copied in its place. Adds the columns that old
// files lack, to the file itself. Nothing only when no path was chosen; all failures are raised as the engine
// raised them.
std::optional<storage::Database> OpenMap(QString &sFile, bool bNew);

// The same without bNew, for reading alone: the file stays as it is, whatever it lacks.
std::optional<storage::Database> OpenMapToRead(QString &sFile);

// True for a map of the program's own form that UpgradeMap would change; false as well when it cannot be
// told.
bool IsOldMap(const QString &path);

// Adds Nodes.Alignment, filled with 7, and Slices.xZoom and yZoom, filled with 0, unless they are there.
// Looks only at xZoom for the two.
void UpgradeMap(storage::Database &database);

} // namespace document
