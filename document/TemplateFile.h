// The empty map that every map starts from: the delivered one, or the user's own copy of it.
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

// Full path of template.tpl, for readers.
QString TemplatePath();

// Adds a level or group for each of the rows of the table.
void ReadLevels(storage::Recordset rows, cLevels &levels);
void ReadGroups(storage::Recordset rows, cGroups &groups);

// Puts the levels or groups in the place of those of the empty map, which is replaced as a whole. Gives the
// path of the file that was written: settings::TellOfOwnCopies tells the user of it.
QString WriteDefaultLevels(std::span<const LevelRow> levels);
QString WriteDefaultGroups(std::span<const GroupRow> groups);

} // namespace document
