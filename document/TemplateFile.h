// The empty map that every map starts from, beside the executable.
#pragma once

#include <QString>

namespace storage {
class Database;
}

namespace document {

class cLevels;
class cGroups;

// Full path of template.tpl in the program's folder.
QString TemplatePath();

// Adds a level or group for each row of the table.
void ReadLevels(storage::Database &database, cLevels &levels);
void ReadGroups(storage::Database &database, cGroups &groups);

} // namespace document
