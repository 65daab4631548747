// From a path to an open map file.
#pragma once

#include "storage/Database.h"

#include <optional>
#include <QString>

namespace document {

// Opens the map `sFile`. Where that is empty, asks for a path and gives it back through the argument; nullopt
// when none was chosen. With bNew an existing file is deleted first and the empty map copied in its place.
// Adds the columns that old files lack, to the file itself. Failures are raised as the engine raised them.
std::optional<storage::Database> OpenMap(QString &sFile, bool bNew);

// The same without bNew, for reading alone: the file stays as it is, whatever it lacks.
std::optional<storage::Database> OpenMapToRead(QString &sFile);

// True for a map of the program's own form that UpgradeMap would change; false also when the file can't be
// read.
bool IsOldMap(const QString &path);

// Adds Nodes.Alignment, filled with 7, and Slices.xZoom and yZoom, filled with 0, unless they are there.
// Looks only at xZoom for the two.
void UpgradeMap(storage::Database &database);

} // namespace document
