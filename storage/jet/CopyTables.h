// Writes the tables of a Jet file into a new database of the program's own form.
#pragma once

#include "storage/jet/JetFile.h"

namespace storage::jet {

// `target` is a path without a file, or an empty file. What stands there after an error is of no use. Errors
// are those of JetFile, and SQLite::Exception.
void CopyTables(JetFile &file, const QString &target);

// Copies what can be read, table by table; those that `target` has from a former run are left as they are.
// Each few rows are safe once they are copied: the process may end at any moment.
void CopyWhatCanBeRead(JetFile &file, const QString &target);

} // namespace storage::jet
