// template.tpl, the empty map that every map starts from: the delivered one, or the user's own copy of it.
#pragma once

#include <QString>
#include <span>

namespace storage {
class Recordset;
}

namespace document {

class cLevels;
class cGroups;
struct GroupRow;
struct LevelRow;

// Full path of template.tpl, to be read.
QString TemplatePath();

// Adds a level or group for each of the rows of the table.
void ReadLevels(storage::Recordset rows, cLevels &levels);
void ReadGroups(storage::Recordset rows, cGroups &groups);

// Replaces the levels or groups of the empty map. The file is written anew and swapped in; gives the path of
// the file that was written, of which settings::TellOfOwnCopies tells the user.
QString WriteDefaultLevels(std::span<const LevelRow> levels);
QString WriteDefaultGroups(std::span<const GroupRow> groups);

} // namespace document
