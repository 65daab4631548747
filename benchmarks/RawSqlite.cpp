#include "benchmarks/RawSqlite.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <QFile>
#include <sqlite3.h>
#include <string>
#include <variant>
#include <vector>

namespace bench {

namespace {

using Cell = std::variant<std::monostate, sqlite3_int64, double, std::string>;

struct Table {
    std::string name;
    std::string sql;
    int columns = 0;
    std::vector<std::vector<Cell>> rows;
};

void Must(int result, sqlite3 *db) {
    if (result == SQLITE_OK || result == SQLITE_DONE || result == SQLITE_ROW) return;
    std::fprintf(stderr, "raw sqlite: %s\n", sqlite3_errmsg(db));
    std::exit(1);
}

sqlite3_stmt *Prepare(sqlite3 *db, const std::string &sql) {
    sqlite3_stmt *statement = nullptr;
    Must(sqlite3_prepare_v2(db, sql.c_str(), -1, &statement, nullptr), db);
    return statement;
}

Cell CellAt(sqlite3_stmt *statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        return sqlite3_column_int64(statement, column);
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement, column);
    case SQLITE_NULL:
        return std::monostate();
    default: {
        const auto *text = static_cast<const char *>(sqlite3_column_blob(statement, column));
        return text ? std::string(text, size_t(sqlite3_column_bytes(statement, column))) : std::string();
    }
    }
}

void Bind(sqlite3_stmt *statement, int index, const Cell &cell) {
    if (const auto *number = std::get_if<sqlite3_int64>(&cell))
        sqlite3_bind_int64(statement, index, *number);
    else if (const auto *real = std::get_if<double>(&cell))
        sqlite3_bind_double(statement, index, *real);
    else if (const auto *text = std::get_if<std::string>(&cell))
        sqlite3_bind_text(statement, index, text->data(), int(text->size()), SQLITE_STATIC);
    else
        sqlite3_bind_null(statement, index);
}

long ReadTable(sqlite3 *db, const std::string &name, std::vector<std::vector<Cell>> &rows) {
    sqlite3_stmt *select = Prepare(db, "SELECT * FROM [" + name + "]");
    const int columns = sqlite3_column_count(select);
    long count = 0;
    while (sqlite3_step(select) == SQLITE_ROW) {
        std::vector<Cell> &row = rows.emplace_back();
        row.reserve(size_t(columns));
        for (int i = 0; i < columns; ++i) row.push_back(CellAt(select, i));
        ++count;
    }
    sqlite3_finalize(select);
    return count;
}

} // namespace

struct RawRows::State {
    std::vector<Table> tables;
};

RawRows::RawRows(const QString &map) : state_(std::make_unique<State>()) {
    sqlite3 *db = nullptr;
    Must(sqlite3_open(map.toUtf8().constData(), &db), db);
    sqlite3_stmt *list = Prepare(db, "SELECT name, sql FROM sqlite_master WHERE type='table'");
    while (sqlite3_step(list) == SQLITE_ROW) {
        Table table;
        table.name = reinterpret_cast<const char *>(sqlite3_column_text(list, 0));
        table.sql = reinterpret_cast<const char *>(sqlite3_column_text(list, 1));
        state_->tables.push_back(std::move(table));
    }
    sqlite3_finalize(list);
    for (Table &table : state_->tables) {
        ReadTable(db, table.name, table.rows);
        if (!table.rows.empty()) table.columns = int(table.rows.front().size());
    }
    sqlite3_close(db);
}

RawRows::~RawRows() = default;

void RawRows::Write(const QString &path) const {
    QFile::remove(path);
    sqlite3 *db = nullptr;
    Must(sqlite3_open(path.toUtf8().constData(), &db), db);
    Must(sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr), db);
    for (const Table &table : state_->tables) {
        Must(sqlite3_exec(db, table.sql.c_str(), nullptr, nullptr, nullptr), db);
        if (table.rows.empty()) continue;
        std::string sql = "INSERT INTO [" + table.name + "] VALUES(?";
        for (int i = 1; i < table.columns; ++i) sql += ",?";
        sqlite3_stmt *insert = Prepare(db, sql + ")");
        for (const auto &row : table.rows) {
            for (size_t i = 0; i < row.size(); ++i) Bind(insert, int(i) + 1, row[i]);
            Must(sqlite3_step(insert), db);
            sqlite3_reset(insert);
        }
        sqlite3_finalize(insert);
    }
    Must(sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr), db);
    sqlite3_close(db);
}

// One row, read again and again: numbers and texts in the order of the columns.
constexpr std::size_t kCells = 32;
struct PlainRow {
    std::array<sqlite3_int64, kCells> whole;
    std::array<double, kCells> real;
    std::array<std::string, kCells> text;
};

void ReadRow(sqlite3_stmt *select, int columns, PlainRow &row) {
    for (int i = 0; i < columns; ++i) {
        const size_t at = size_t(i) % kCells; // of a wider table the first cells are read over
        switch (sqlite3_column_type(select, i)) {
        case SQLITE_INTEGER:
            row.whole[at] = sqlite3_column_int64(select, i);
            break;
        case SQLITE_FLOAT:
            row.real[at] = sqlite3_column_double(select, i);
            break;
        case SQLITE_NULL:
            break;
        default:
            row.text[at].assign(reinterpret_cast<const char *>(sqlite3_column_text(select, i)),
                                size_t(sqlite3_column_bytes(select, i)));
        }
    }
}

long RawRows::Read(const QString &path) const {
    sqlite3 *db = nullptr;
    Must(sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr), db);
    long count = 0;
    PlainRow row;
    for (const Table &table : state_->tables) {
        sqlite3_stmt *select = Prepare(db, "SELECT * FROM [" + table.name + "]");
        const int columns = sqlite3_column_count(select);
        for (; sqlite3_step(select) == SQLITE_ROW; ++count) ReadRow(select, columns, row);
        sqlite3_finalize(select);
    }
    sqlite3_close(db);
    return count;
}

} // namespace bench
