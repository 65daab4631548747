#include "document/RepairTables.h"

#include "diagram/model/Picture.h"
#include "document/CellRules.h"
#include "document/ItemColumns.h"
#include "storage/Fields.h"
#include "support/Error.h"

namespace document {

using storage::FieldType;

namespace {

// The columns by which reports name a row.
struct KeyColumns {
    const TableLayout *table;
    int first, second; // -1 for none
};
const KeyColumns kKeys[] = {
    {&schema::kSlices, schema::slice::kIndex, -1},
    {&schema::kNodes, schema::node::kKey, -1},
    {&schema::kLinks, schema::link::kKey, -1},
    {&schema::kLinkPoints, schema::point::kLink, schema::point::kIndex},
    {&schema::kFonts, schema::font::kKey, -1},
    {&schema::kPictures, schema::picture::kKey, -1},
    {&schema::kGroups, schema::group::kGroup, -1},
    {&schema::kLevels, schema::level::kLevel, -1},
    {&schema::kHyperlinks, schema::hyperlink::kNodeKey, -1},
    {&schema::kAttachments, schema::attachment::kKey, -1},
    {&schema::kFilterViews, schema::view::kView, -1},
    {&schema::kRoutedLinks, schema::routed::kLink, -1},
};

QString KeyOf(const storage::Recordset &rows, const TableLayout &table) {
    QStringList parts;
    for (const KeyColumns &keys : kKeys) {
        if (keys.table != &table) continue;
        for (const int column : {keys.first, keys.second}) {
            const int at = column < 0 ? -1 : rows.FindColumn(NameOf(table, column));
            if (at >= 0) parts.append(ShortText(rows.Text(at)));
        }
    }
    return parts.join(QLatin1Char(' ')).trimmed();
}

void Bind(storage::PreparedStatement &insert, int index, const QVariant &value, FieldType type) {
    if (!value.isValid()) return insert.BindNull(index);
    switch (type) {
    case FieldType::Boolean:
        return insert.BindBoolean(index, value.toBool());
    case FieldType::Integer:
    case FieldType::Long:
        return insert.BindLong(index, value.toLongLong());
    case FieldType::Single:
    case FieldType::Double:
    case FieldType::Currency:
        return insert.BindDouble(index, value.toDouble());
    default:
        return insert.BindText(index, value.toString());
    }
}

} // namespace

QString RowName(const QString &table, const QString &key, qlonglong row) {
    return key.isEmpty() ? QStringLiteral("%1, row %2").arg(table).arg(row)
                         : QStringLiteral("%1 %2").arg(table, key);
}

void RepairTables::Run() {
    for (const TableLayout *table : schema::Tables()) CopyTable(*table);
    for (const TableLayout *table : schema::OptionalTables()) {
        if (!storage::TableExistsDB(from_, NameOf(*table))) continue;
        CreateTable(to_, *table);
        CopyTable(*table);
    }
}

std::vector<RepairTables::Column> RepairTables::Plan(const storage::Recordset &rows,
                                                     const TableLayout &table) {
    std::vector<Column> columns;
    for (int i = 0; i < static_cast<int>(table.columns.size()); ++i) {
        Column column{rows.FindColumn(NameOf(table, i)), i, table.columns[static_cast<std::size_t>(i)].type,
                      RuleFor(table, i), NameOf(table, i)};
        if (column.at < 0 && !MayBeMissing(rows, table, i))
            repairs_.push_back({QStringLiteral("%1, %2").arg(NameOf(table), column.name),
                                QStringLiteral("the column is missing"),
                                QStringLiteral("the usual value stands in every row")});
        columns.push_back(std::move(column));
    }
    return columns;
}

void RepairTables::CopyTable(const TableLayout &table) {
    std::optional<storage::Recordset> rows;
    try {
        rows.emplace(from_.OpenRecordset(SelectAll(table)));
    } catch (const support::Error &) {
        repairs_.push_back({NameOf(table), QStringLiteral("the table cannot be read"),
                            QStringLiteral("the map has none of its rows")});
        return;
    }
    const std::vector<Column> columns = Plan(*rows, table);
    storage::PreparedStatement insert = to_.Prepare(InsertInto(table));
    for (row_ = 1; !rows->EndOfFile(); rows->MoveNext(), ++row_) CopyRow(*rows, table, columns, insert);
}

void RepairTables::Note(const storage::Recordset &rows, const TableLayout &table, const Column &column,
                        const QString &wrong, const QString &remedy) {
    const QString name = RowName(NameOf(table), KeyOf(rows, table), row_);
    repairs_.push_back({QStringLiteral("%1, %2").arg(name, column.name), wrong, remedy});
}

QVariant RepairTables::CellOf(const storage::Recordset &rows, const TableLayout &table,
                              const Column &column) {
    if (column.at < 0) return MissingCell(table, column.number);
    const MendedCell cell = MendCell(rows, column.at, column.type, column.rule);
    if (!cell.wrong.isEmpty())
        Note(rows, table, column, cell.wrong, QStringLiteral("set to %1").arg(cell.written));
    return cell.value;
}

// A row of the table of pictures without a picture in it would end a load: it is left out.
bool RepairTables::KeepsRow(const storage::Recordset &rows, const TableLayout &table,
                            const std::vector<Column> &columns) {
    if (&table != &schema::kPictures) return true;
    const Column &column = columns[schema::picture::kPicture];
    const QByteArray bytes = column.at < 0 ? QByteArray() : rows.Bytes(column.at);
    if (diagram::Picture::IsPicture(bytes)) return true;
    Note(rows, table, column, QStringLiteral("%1 bytes that are no picture").arg(bytes.size()),
         QStringLiteral("left out"));
    return false;
}

void RepairTables::CopyRow(const storage::Recordset &rows, const TableLayout &table,
                           const std::vector<Column> &columns, storage::PreparedStatement &insert) {
    if (!KeepsRow(rows, table, columns)) return;
    std::vector<QByteArray> bytes; // must live until the row is written
    bytes.reserve(columns.size());
    for (const Column &column : columns) {
        const QVariant value = CellOf(rows, table, column);
        if (column.type != FieldType::LongBinary || !value.isValid()) {
            Bind(insert, column.number, value, column.type);
            continue;
        }
        bytes.push_back(value.toByteArray());
        insert.BindBytes(column.number, bytes.back());
    }
    insert.Run();
}

} // namespace document
