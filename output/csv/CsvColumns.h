// The columns of a slice's text file.
#pragma once

#include "storage/Database.h"

#include <QStringList>
#include <vector>

namespace output {

inline constexpr char kTypeColumn[] = "Type";
// Its values. An import takes any other value for kLinkType.
inline constexpr char kNodeType[] = "Node", kLinkType[] = "Link";

struct CsvColumn {
    QString name;
    storage::FieldType type = storage::FieldType::Text;
    bool isNumber = false; // an import reads it as a number: the cell must not be empty
};

// Type, then the columns of the map's table of nodes, then those of its table of links that the former lacks,
// all in their order. Columns that an early map lacks and that opening it would add are included.
std::vector<CsvColumn> ColumnsOfMap(const storage::Database &map);
QStringList NamesOf(const std::vector<CsvColumn> &columns);

} // namespace output
