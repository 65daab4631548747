// The parts of a query of one table, which a recordset needs for changing its rows.
#pragma once

#include <optional>
#include <QString>

namespace storage {

struct SelectText {
    QString columns; // between SELECT and FROM
    QString table;   // the name alone
    QString rest;    // behind the table: WHERE, ORDER BY

    // The query with the row's identity as one more column at the end.
    QString WithRowId() const;
    // The query of the row with the identity ?.
    QString OfOneRow() const;
};

// The parts of "SELECT columns FROM table [WHERE ...] [ORDER BY ...]"; none for a query of any other form:
// more tables, expressions, DISTINCT, GROUP BY.
std::optional<SelectText> SplitSelect(const QString &sql);

} // namespace storage
