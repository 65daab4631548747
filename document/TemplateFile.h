// The empty map that every map starts from, beside the executable.
#pragma once

#include <QString>
#include <span>

namespace storage {
class Recordset;
}

namespace document {

class cLevels;
class cGroups;
struct LevelRow;

// Full path of template.tpl in the program's folder.
QString TemplatePath();

// Adds a level or group for each of the rows of the table.
void ReadLevels(storage::Recordset rows, cLevels &levels);
void ReadGroups(storage::Recordset rows, cGroups &groups);

// Puts the levels in the place of those of the empty map.
void WriteDefaultLevels(std::span<const LevelRow> levels);

} // namespace document
