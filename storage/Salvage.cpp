#include "storage/Salvage.h"

#include "storage/DatabaseState.h"
#include "storage/EngineError.h"
#include "storage/FileForm.h"
#include "storage/JetImport.h"
#include "storage/SalvageCopy.h"
#include "storage/TableScan.h"
#include "storage/text/FieldTypes.h"
#include "support/PrivateFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace storage {

namespace {

const QString kPurpose = QStringLiteral("salvage");
constexpr int kMostLines = 1000; // on what one table lost

std::shared_ptr<Connection> InMemory(const QString &name) {
    return std::make_shared<Connection>(QStringLiteral(":memory:"),
                                        SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, name);
}

// The table's columns as the file names them; none when there is no such table, or none that can be read.
QStringList ColumnsOf(Connection &from, const QString &table) {
    try {
        const Statement any =
            from.Prepare(QStringLiteral("SELECT _rowid_, * FROM %1").arg(QuotedName(table)));
        QStringList columns;
        for (int i = 1; i < sqlite3_column_count(any.get()); ++i)
            columns += QString::fromUtf8(sqlite3_column_name(any.get(), i));
        return columns;
    } catch (const support::Error &) {
        return {};
    }
}

// Fills one table of the copy.
class TableCopy {
public:
    // The columns have no type, so that cells stay as they are.
    TableCopy(Connection &to, const QString &table, const QStringList &columns)
        : to_(to), width_(static_cast<int>(columns.size())) {
        QStringList names, marks{QStringLiteral("?")};
        for (const QString &column : columns) {
            names += QuotedName(column);
            marks += QStringLiteral("?");
        }
        to.Run(QStringLiteral("CREATE TABLE %1 (%2)").arg(QuotedName(table), names.join(QLatin1Char(','))));
        insert_ = to.Prepare(
            QStringLiteral("INSERT OR IGNORE INTO %1 (_rowid_, %2) VALUES (%3)")
                .arg(QuotedName(table), names.join(QLatin1Char(',')), marks.join(QLatin1Char(','))));
    }

    void TakeRow(sqlite3_int64 number, sqlite3_stmt *row) {
        for (int i = 1; i <= width_; ++i)
            sqlite3_bind_value(insert_.get(), i + 1, sqlite3_column_value(row, i));
        Insert(number);
    }
    void TakeCell(sqlite3_int64 number, int column, sqlite3_stmt *cell) {
        if (column < 0) return Insert(number);
        sqlite3_bind_value(insert_.get(), column + 2, sqlite3_column_value(cell, 1));
    }

private:
    void Insert(sqlite3_int64 number) {
        sqlite3_bind_int64(insert_.get(), 1, number);
        to_.RunToEnd(insert_.get(), QString());
        sqlite3_reset(insert_.get());
        sqlite3_clear_bindings(insert_.get());
    }

    Connection &to_;
    int width_;
    Statement insert_;
};

// The lines of what one table lost.
class Losses {
public:
    Losses(const QString &table, QStringList &lines) : table_(table), lines_(lines) {}

    void Rows(const TableScan::Range &range) {
        if (range.low == range.high)
            Add(QStringLiteral("row %1 cannot be read").arg(range.low));
        else
            Add(QStringLiteral("rows %1 to %2 cannot be read").arg(range.low).arg(range.high));
    }
    void Cell(sqlite3_int64 row, const QString &column) {
        Add(QStringLiteral("row %1, %2: the value cannot be read").arg(row).arg(column));
    }

private:
    void Add(const QString &what) {
        if (++count_ > kMostLines) return;
        lines_ += count_ < kMostLines ? table_ + QStringLiteral(", ") + what
                                      : table_ + QStringLiteral(", and more that cannot be read");
    }

    QString table_;
    QStringList &lines_;
    int count_ = 0;
};

// Copies the rows that can be read; a row of which only some cells can be read comes with these.
void CopyTable(Connection &from, Connection &to, const QString &table, const QStringList &columns,
               sqlite3_int64 most, QStringList &lost) {
    TableCopy copy(to, table, columns);
    Losses losses(table, lost);
    TableScan scan(from, table, columns, most);
    int next = 0; // the column that comes after those that were read
    const auto skipTo = [&](sqlite3_int64 number, int column) {
        for (; next < column; ++next) losses.Cell(number, columns[next]);
    };
    scan.Run([&](sqlite3_int64 number, sqlite3_stmt *row) { copy.TakeRow(number, row); },
             [&](sqlite3_int64 number, int column, sqlite3_stmt *cell) {
                 skipTo(number, column < 0 ? static_cast<int>(columns.size()) : column);
                 next = column + 1;
                 copy.TakeCell(number, column, cell);
             });
    for (const TableScan::Range &range : scan.Lost()) losses.Rows(range);
}

// Copies those of the tables that the connection has; their number.
int CopyTables(Connection &from, Connection &to, const QStringList &tables, sqlite3_int64 most,
               QStringList &lost) {
    int found = 0;
    for (const QString &table : tables) {
        const QStringList columns = ColumnsOf(from, table);
        if (columns.isEmpty()) continue;
        ++found;
        CopyTable(from, to, table, columns, most, lost);
    }
    return found;
}

std::shared_ptr<Connection> ReadNative(const QString &path, const QStringList &tables, const QString &model,
                                       QStringList &lost) {
    constexpr int kSmallestRow = 4; // bytes
    const support::PrivateFolder folder(kPurpose);
    for (const bool isMended : {false, true}) { // then with the model's first page
        if (isMended && model.isEmpty()) break;
        const SalvageCopy copy(path, folder.Path(), isMended ? model : QString());
        auto memory = InMemory(path);
        memory->Run(QStringLiteral("BEGIN"));
        QStringList lines;
        if (isMended)
            lines += QStringLiteral("the file's first page cannot be read; an empty map's stands for it");
        if (CopyTables(copy.Open(), *memory, tables, QFileInfo(path).size() / kSmallestRow, lines) == 0)
            continue;
        memory->Run(QStringLiteral("COMMIT"));
        lost += lines;
        return memory;
    }
    throw DamagedDatabase(path);
}

} // namespace

// Known by the pages behind the first: each of them begins as a page of a table does.
bool LostItsFirstPage(const QString &path) {
    constexpr qint64 kUsualPage = 4096;
    constexpr int kPagesLookedAt = 4;
    constexpr char kInnerPage = 0x05, kLeafPage = 0x0D; // of the tree of a table
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() < kUsualPage * (kPagesLookedAt + 1)) return false;
    for (int page = 1; page <= kPagesLookedAt; ++page) {
        char kind = 0;
        if (!file.seek(page * kUsualPage) || !file.getChar(&kind)) return false;
        if (kind != kInnerPage && kind != kLeafPage) return false;
    }
    return true;
}

void SweepSalvageFolders() { support::SweepPrivateFolders(kPurpose); }

Salvaged SalvageDatabase(const QString &path, const QStringList &tables, const QString &model) {
    const QString name = FullPath(path);
    QStringList lost;
    const FileForm form = RecogniseFile(name);
    if (form == FileForm::Unknown && !LostItsFirstPage(name)) throw UnrecognizedFormat(name);
    auto memory = form == FileForm::Jet ? SalvageJet(name, lost) : ReadNative(name, tables, model, lost);
    return {Database(std::make_unique<Database::State>(std::move(memory), name, false)), lost};
}

} // namespace storage
