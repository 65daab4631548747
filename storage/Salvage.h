// Reading what can be read of a damaged database.
#pragma once

#include "storage/Database.h"

namespace storage {

struct Salvaged {
    // The tables that were found, in memory, with the columns and cells as the file has them. Rows stand in
    // the order of the file.
    Database database;
    // What could not be read: a line each, that begins with the table's name.
    QStringList lost;
};

// Reads the tables named, as far as their rows can be read; the file stays as it is. Of the program's own
// form damaged pages are gone around; a first page that is of no use is replaced by that of `model`, a sound
// database of the same tables, where that is given. Of a Jet file every row and value that can be read is
// taken. Ends in bounded time for any file. 3024 for a missing file, 3051 for a folder or a file that may not
// be read, 3343 for anything else than a database, 3049 when there is none of the tables.
Salvaged SalvageDatabase(const QString &path, const QStringList &tables, const QString &model = QString());

// True for a file of the program's own form whose first page is of no use, so that nothing else recognises
// it.
bool LostItsFirstPage(const QString &path);

// Removes the copies that processes left in the temporary folder when they were killed at it.
void SweepSalvageFolders();

} // namespace storage
