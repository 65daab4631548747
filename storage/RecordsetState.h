// What a Recordset holds; for the facade's own sources.
#pragma once

#include "storage/Connection.h"
#include "storage/SelectText.h"

#include <optional>
#include <utility>

namespace storage {

struct Recordset::State {
    enum class Change { None, Edit, Add };

    State() = default; // closed: no rows, no columns
    State(std::shared_ptr<Connection> shared, QString text, std::vector<Parameter> values);

    // Takes the next row; at the end `row` becomes null.
    void Step();
    // The statement that has the current row; 3021 without one, 3265 for a column that is none.
    sqlite3_stmt *At(int column) const {
        if (row && column >= 0 && column < fieldCount) return row;
        FailAt();
    }
    // The value of the current row, valid until the next step.
    sqlite3_value *Cell(int column) const { return sqlite3_column_value(At(column), column); }
    [[noreturn]] void FailAt() const;
    // The column without regard to case, or -1.
    int Find(const QString &name) const;
    // Runs the query once more, to count its rows.
    std::int64_t CountRows() const;
    // Writes what is pending, by UPDATE or INSERT.
    void RunChange();
    // Makes `row` show the current row as it was just changed.
    void ReadAgain();

    std::shared_ptr<Connection> connection;
    QString sql;
    std::vector<Parameter> parameters;
    std::optional<SelectText> select; // set when the rows can be changed
    Statement statement;
    Statement changedRow;        // reads the current row after an Update; made at the first
    sqlite3_stmt *row = nullptr; // where the values of the current row are; null without one
    int fieldCount = 0;
    std::int64_t position = 0;       // of the current row, from 0
    std::int64_t passed = 0;         // rows seen since the first
    mutable std::int64_t count = -1; // of all rows; -1 before it was asked for
    Change change = Change::None;
    std::vector<std::pair<QString, QVariant>> pending; // what was set, in order: column, value

private:
    void PrepareQuery();
};

} // namespace storage
