#include "storage/jet/CopyTables.h"

#include "storage/jet/Failure.h"
#include "storage/jet/Values.h"
#include "storage/text/FieldTypes.h"

#include <algorithm>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

namespace storage::jet {

namespace {

// Where a value is written to.
struct Target {
    SQLite::Statement &insert;
    int index;

    void Whole(std::int64_t value) const { insert.bind(index, value); }
    void Number(double value) const { insert.bind(index, value); }
    void Text(const QString &value) const { insert.bind(index, value.toStdString()); }
    void Bytes(const QByteArray &value) const {
        insert.bind(index, static_cast<const void *>(value.constData()), static_cast<int>(value.size()));
    }
};

using Writer = void (*)(JetFile &file, const MdbColumn &column, const QByteArray &bytes,
                        const Target &target);

void WriteWhole(JetFile &, const MdbColumn &, const QByteArray &bytes, const Target &target) {
    target.Whole(DecodeWhole(bytes));
}
void WriteText(JetFile &file, const MdbColumn &, const QByteArray &bytes, const Target &target) {
    target.Text(file.Text(bytes));
}
void WriteMemo(JetFile &file, const MdbColumn &, const QByteArray &bytes, const Target &target) {
    target.Text(file.Text(file.LongValue(bytes)));
}
void WriteLong(JetFile &file, const MdbColumn &, const QByteArray &bytes, const Target &target) {
    target.Bytes(file.LongValue(bytes));
}

// What becomes of each type of the file.
struct TypeRow {
    int type;
    FieldType field;
    Writer write;
};

constexpr TypeRow kTypes[] = {
    {MDB_BYTE, FieldType::Integer, WriteWhole},
    {MDB_INT, FieldType::Integer, WriteWhole},
    {MDB_LONGINT, FieldType::Long, WriteWhole},
    {MDB_MONEY, FieldType::Currency,
     [](JetFile &, const MdbColumn &, const QByteArray &bytes, const Target &target) {
         target.Number(DecodeMoney(bytes));
     }},
    {MDB_FLOAT, FieldType::Single,
     [](JetFile &, const MdbColumn &, const QByteArray &bytes, const Target &target) {
         target.Number(DecodeSingle(bytes));
     }},
    {MDB_DOUBLE, FieldType::Double,
     [](JetFile &, const MdbColumn &, const QByteArray &bytes, const Target &target) {
         target.Number(DecodeDouble(bytes));
     }},
    {MDB_DATETIME, FieldType::Date,
     [](JetFile &, const MdbColumn &, const QByteArray &bytes, const Target &target) {
         target.Text(DecodeDate(bytes));
     }},
    {MDB_BINARY, FieldType::LongBinary,
     [](JetFile &, const MdbColumn &, const QByteArray &bytes, const Target &target) {
         target.Bytes(bytes);
     }},
    {MDB_TEXT, FieldType::Text, WriteText},
    {MDB_OLE, FieldType::LongBinary, WriteLong},
    {MDB_MEMO, FieldType::Memo, WriteMemo},
    {MDB_REPID, FieldType::Text,
     [](JetFile &, const MdbColumn &, const QByteArray &bytes, const Target &target) {
         target.Text(DecodeGuid(bytes));
     }},
    {MDB_NUMERIC, FieldType::Currency,
     [](JetFile &, const MdbColumn &column, const QByteArray &bytes, const Target &target) {
         // The library has the two the wrong way round; the places are never more than the digits.
         target.Number(DecodeNumeric(bytes, std::min(column.col_scale, column.col_prec)));
     }},
    {MDB_BOOL, FieldType::Boolean, nullptr},
};

const TypeRow &TypeOf(const MdbColumn &column) {
    for (const TypeRow &row : kTypes) {
        if (row.type == column.col_type) return row;
    }
    throw Damaged("a column has an unknown type");
}

QString CreateText(const JetFile &file, const JetTable &table) {
    QStringList columns;
    for (const MdbColumn *column : table.Columns()) {
        const FieldType type = TypeOf(*column).field;
        const int size = file.IsJet3() ? column->col_size : column->col_size / 2;
        columns += QuotedName(QString::fromUtf8(column->name)) + QLatin1Char(' ') +
                   DeclaredType(type, column->col_type == MDB_TEXT ? size : 0);
    }
    return QStringLiteral("CREATE TABLE %1 (%2)")
        .arg(QuotedName(table.Name()), columns.join(QStringLiteral(", ")));
}

void CopyRow(JetFile &file, const JetTable &table, const RawRow &row, SQLite::Statement &insert) {
    insert.reset();
    insert.clearBindings();
    for (std::size_t i = 0; i < row.size(); ++i) {
        const MdbColumn &column = *table.Columns()[i];
        const Target target{insert, static_cast<int>(i) + 1};
        if (column.col_type == MDB_BOOL)
            target.Whole(row[i] ? 1 : 0);
        else if (row[i])
            TypeOf(column).write(file, column, *row[i], target);
    }
    insert.exec();
}

void CopyTable(JetFile &file, JetTable &table, SQLite::Database &database) {
    database.exec(CreateText(file, table).toStdString());
    const QString marks = QStringList(table.Columns().size(), QStringLiteral("?")).join(QStringLiteral(", "));
    SQLite::Statement insert(
        database,
        QStringLiteral("INSERT INTO %1 VALUES (%2)").arg(QuotedName(table.Name()), marks).toStdString());
    table.ForEachRow([&](const RawRow &row) { CopyRow(file, table, row, insert); });
}

} // namespace

void CopyTables(JetFile &file, const QString &target) {
    SQLite::Database database(target.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    database.exec("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; BEGIN");
    for (JetTable &table : file.UserTables()) CopyTable(file, table, database);
    database.exec("COMMIT");
}

} // namespace storage::jet
