#include "output/csv/CsvColumns.h"

#include "document/ItemColumns.h"

#include <algorithm>

namespace output {

namespace {

bool HasName(const std::vector<CsvColumn> &columns, const QString &name) {
    return std::ranges::any_of(columns, [&](const CsvColumn &column) {
        return column.name.compare(name, Qt::CaseInsensitive) == 0;
    });
}

template <typename ItemColumns>
bool IsNumber(const ItemColumns &columns, const QString &name) {
    return std::ranges::any_of(columns, [&](const auto &column) {
        return column.setNumber && name.compare(QLatin1String(column.def.name), Qt::CaseInsensitive) == 0;
    });
}

void AddTo(std::vector<CsvColumn> &columns, const QString &name, storage::FieldType type) {
    if (HasName(columns, name)) return;
    columns.push_back(
        {name, type, IsNumber(document::kNodeColumns, name) || IsNumber(document::kLinkColumns, name)});
}

template <typename ItemColumns>
void AddTable(std::vector<CsvColumn> &columns, const storage::TableDef &table,
              const ItemColumns &itemColumns) {
    for (const storage::Field &field : table.fields) AddTo(columns, field.name, field.type);
    for (const auto &column : itemColumns)
        if (column.isLater) AddTo(columns, QLatin1String(column.def.name), column.def.type);
}

} // namespace

std::vector<CsvColumn> ColumnsOfMap(const storage::Database &map) {
    std::vector<CsvColumn> columns{{QLatin1String(kTypeColumn)}};
    AddTable(columns, map.Table(NameOf(document::schema::kNodes)), document::kNodeColumns);
    AddTable(columns, map.Table(NameOf(document::schema::kLinks)), document::kLinkColumns);
    return columns;
}

QStringList NamesOf(const std::vector<CsvColumn> &columns) {
    QStringList names;
    for (const CsvColumn &column : columns) names.append(column.name);
    return names;
}

} // namespace output
