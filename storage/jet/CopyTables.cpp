#include "storage/jet/CopyTables.h"

#include "storage/jet/Failure.h"
#include "storage/jet/Values.h"
#include "storage/JetExitCodes.h"
#include "storage/text/FieldTypes.h"

#include <algorithm>
#include <optional>
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

// Binds the value of one cell; Null stays unbound.
void WriteValue(JetFile &file, const MdbColumn &column, const std::optional<QByteArray> &bytes,
                const Target &target) {
    if (column.col_type == MDB_BOOL)
        target.Whole(bytes ? 1 : 0);
    else if (bytes)
        TypeOf(column).write(file, column, *bytes, target);
}

void CopyRow(JetFile &file, const JetTable &table, const RawRow &row, SQLite::Statement &insert) {
    insert.reset();
    insert.clearBindings();
    for (std::size_t i = 0; i < row.size(); ++i)
        WriteValue(file, *table.Columns()[i], row[i], {insert, static_cast<int>(i) + 1});
    insert.exec();
}

SQLite::Statement InsertInto(SQLite::Database &database, const JetTable &table) {
    const QString marks = QStringList(table.Columns().size(), QStringLiteral("?")).join(QStringLiteral(", "));
    return {database,
            QStringLiteral("INSERT INTO %1 VALUES (%2)").arg(QuotedName(table.Name()), marks).toStdString()};
}

void CopyTable(JetFile &file, JetTable &table, SQLite::Database &database) {
    database.exec(CreateText(file, table).toStdString());
    SQLite::Statement insert = InsertInto(database, table);
    table.ForEachRow([&](const RawRow &row) { CopyRow(file, table, row, insert); });
}

// The table of the target in which a line tells of each thing that was lost. It is there from the first run
// on.
class LostLines {
public:
    explicit LostLines(SQLite::Database &database)
        : database_(database), isNew_(!database.tableExists(kLostTable)) {
        if (isNew_) database_.exec(QStringLiteral("CREATE TABLE %1 (line TEXT)").arg(Table()).toStdString());
        insert_.emplace(database_, QStringLiteral("INSERT INTO %1 VALUES (?)").arg(Table()).toStdString());
    }

    // Whether no run was there before this one.
    bool IsNew() const { return isNew_; }
    // Adds a line; gives what takes it out again.
    std::int64_t Add(const QString &table, const QString &what) {
        insert_->bind(1, QStringLiteral("%1, %2").arg(table, what).toStdString());
        insert_->exec();
        insert_->reset();
        return database_.getLastInsertRowid();
    }
    void AddTable(const QString &table) { Add(table, QStringLiteral("the table cannot be read")); }
    void Remove(std::int64_t line) {
        database_.exec(QStringLiteral("DELETE FROM %1 WHERE rowid=%2").arg(Table()).arg(line).toStdString());
    }

private:
    static QString Table() { return QuotedName(QString::fromLatin1(kLostTable)); }

    SQLite::Database &database_;
    bool isNew_;
    std::optional<SQLite::Statement> insert_;
};

// Copies a table with all values that can be read, a few rows in each transaction.
class ReadableCopy {
public:
    ReadableCopy(JetFile &file, JetTable &table, SQLite::Database &database, LostLines &lost)
        : file_(file), table_(table), database_(database), lost_(lost) {}

    // While it runs, a line says that the reading ended in the middle: it stays if the process dies.
    void Run() {
        database_.exec(CreateText(file_, table_).toStdString());
        const std::int64_t early =
            lost_.Add(table_.Name(), QStringLiteral("the reading ended in the middle"));
        EndTransaction();
        CopyRows();
        lost_.Remove(early);
        EndTransaction();
    }

private:
    void EndTransaction() { database_.exec("COMMIT; BEGIN"); }
    void CopyRows() {
        SQLite::Statement insert = InsertInto(database_, table_);
        const int lost = table_.ForEachReadableRow([&](const RawRow &row) { CopyRow(row, insert); });
        if (lost > 0) Note(QStringLiteral("%1 rows cannot be read").arg(lost));
    }
    void CopyRow(const RawRow &row, SQLite::Statement &insert) {
        constexpr int kRowsATime = 64;
        insert.reset();
        insert.clearBindings();
        ++rows_;
        for (std::size_t i = 0; i < row.size(); ++i) CopyValue(row, i, insert);
        insert.exec();
        insert.reset();
        if (rows_ % kRowsATime == 0) EndTransaction();
    }
    void CopyValue(const RawRow &row, std::size_t i, SQLite::Statement &insert) {
        const MdbColumn &column = *table_.Columns()[i];
        try {
            WriteValue(file_, column, row[i], {insert, static_cast<int>(i) + 1});
        } catch (const Damaged &) {
            Note(QStringLiteral("row %1, %2: the value cannot be read")
                     .arg(rows_)
                     .arg(QString::fromUtf8(column.name)));
        }
    }
    void Note(const QString &what) {
        constexpr int kMostNotes = 1000;
        if (++notes_ <= kMostNotes) lost_.Add(table_.Name(), what);
    }

    JetFile &file_;
    JetTable &table_;
    SQLite::Database &database_;
    LostLines &lost_;
    int rows_ = 0;
    int notes_ = 1; // with that of the early end
};

} // namespace

void CopyWhatCanBeRead(JetFile &file, const QString &target) {
    SQLite::Database database(target.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    database.exec("PRAGMA journal_mode=MEMORY; PRAGMA synchronous=OFF");
    LostLines lost(database);
    QStringList lostTables;
    std::vector<JetTable> tables = file.ReadableTables(lostTables);
    database.exec("BEGIN");
    if (lost.IsNew())
        for (const QString &name : lostTables) lost.AddTable(name);
    for (JetTable &table : tables) {
        if (database.tableExists(table.Name().toStdString())) continue;
        try {
            ReadableCopy(file, table, database, lost).Run();
        } catch (const Damaged &) {
            lost.AddTable(table.Name());
        }
    }
    database.exec("COMMIT");
}

void CopyTables(JetFile &file, const QString &target) {
    SQLite::Database database(target.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    database.exec("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; BEGIN");
    for (JetTable &table : file.UserTables()) CopyTable(file, table, database);
    database.exec("COMMIT");
}

} // namespace storage::jet
