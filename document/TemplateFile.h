// The empty map that every map starts from, beside the executable.
#pragma once

#include <QString>

namespace storage {
class Recordset;
}

namespace document {

class cLevels;
class cGroups;

// Full path of template.tpl in the program's folder.
QString TemplatePath();

// Adds a level or group for each of the rows of the table.
void ReadLevels(storage::Recordset rows, cLevels &levels);
void ReadGroups(storage::Recordset rows, cGroups &groups);

} // namespace document
