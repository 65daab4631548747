// The table of named views in a map file.
#pragma once

namespace storage {
class Database;
}

namespace document {

class clsfrmMain;

// Replaces the content of the table by the window's views, with the names that their levels and groups have
// now. The table is made when it is needed.
void WriteViews(storage::Database &database, clsfrmMain &settings);
// Replaces the window's views by those of the map: none for a map without the table, or whose table has other
// columns. Levels and groups must have been read before.
void ReadViews(storage::Database &database, clsfrmMain &settings);

} // namespace document
