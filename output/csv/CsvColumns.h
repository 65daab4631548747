// The columns of a slice's text file.
#pragma once

#include "storage/Database.h"

#include <QStringList>
#include <vector>

namespace output {

inline constexpr char kTypeColumn[] = "Type";
// What stands in it. Whatever isn't a node is a link.
inline constexpr char kNodeType[] = "Node", kLinkType[] = "Link";

struct CsvColumn {
    QString name;
    storage::FieldType type = storage::FieldType::Text;
    bool isNumber = false; // that an import reads, so that the cell may not be empty
};

// Type, the columns of the map's table of nodes in their order, those of its table of links that the former
// has not. Columns that an early map lacks and that opening it would add are among them.
std::vector<CsvColumn> ColumnsOfMap(const storage::Database &map);
QStringList NamesOf(const std::vector<CsvColumn> &columns);

} // namespace output
