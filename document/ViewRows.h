// The table of named views in a map file.
#pragma once

namespace storage {
class Database;
}

namespace document {

class clsfrmMain;

// Writes the views, by the names that their levels and groups have now. The table is made when it is needed;
// what stood in it goes.
void WriteViews(storage::Database &database, clsfrmMain &settings);
// Reads them in the place of those that there are; none from a map without the table, or with one of other
// columns. Levels and groups must have been read.
void ReadViews(storage::Database &database, clsfrmMain &settings);

} // namespace document
