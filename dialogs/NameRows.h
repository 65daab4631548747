// The levels or the groups of a map as rows to be edited, and what becomes of the rows. The map is left alone
// until they are stored.
#pragma once

#include "support/Colour.h"

#include <optional>
#include <QString>
#include <vector>

namespace document {
class cGroups;
class cLevels;
} // namespace document

namespace dialogs {

struct NameRow {
    QString key; // of the level or group; empty for a row that is new
    QString name;
    bool selected = true;
    support::Colour colour = 0; // a level's
};
using NameRows = std::vector<NameRow>;

NameRows RowsOf(const document::cLevels &levels);
NameRows RowsOf(const document::cGroups &groups);

// Each row goes to its level or group; one without a key becomes a new member, behind the others, and is
// given its key. A member that no row stands for stays as it is: nodes may have it. Error 5 for an unknown
// key.
void StoreRows(NameRows &rows, document::cLevels &levels);
void StoreRows(NameRows &rows, document::cGroups &groups);

// What all new maps start with from now on. Gives the path of the file that was written.
QString StoreDefaultLevels(const NameRows &rows);
QString StoreDefaultGroups(const NameRows &rows);

// The rows of `former` that are gone.
NameRows DeletedRows(const NameRows &former, const NameRows &rows);

// Why a row can't stand: a map finds levels and groups by their names.
struct NameFault {
    enum class Kind {
        Empty,   // or nothing but white space
        Double,  // a row before it has the name
        Deleted, // a row that was deleted has it, and stays in the map
    };
    std::size_t row = 0;
    Kind kind = Kind::Empty;
};
// The first one. Names are compared exactly. A row that keeps its former name may have that of a deleted one.
std::optional<NameFault> FindFault(const NameRows &former, const NameRows &rows);

} // namespace dialogs
