// What the cells of a map file may hold, and what stands in for those that hold something else.
#pragma once

#include "diagram/model/Ranges.h"
#include "document/MapSchema.h"

namespace document {

struct CellRule {
    const TableLayout *table;
    int column;
    // A number outside takes the nearer end; one in a gap of the range, and what is no number at all, takes
    // the fallback.
    diagram::Range range;
    double fallback;          // NaN stands for Null
    bool isMagnitude = false; // a load takes the number without its sign
};

// One rule for each column whose numbers a load refuses; null for the others.
const CellRule *RuleFor(const TableLayout &table, int column);
std::span<const CellRule> CellRules();

// A cell as a load takes it.
struct MendedCell {
    QVariant value;  // what to write: null for Null
    QString wrong;   // what is wrong with what the file has; empty when nothing is
    QString written; // the same as a text, as far as it was changed
};

// The cell of the row on which the recordset stands, in its column `at`; `type` and `rule` are those of the
// layout's column.
MendedCell MendCell(const storage::Recordset &rows, int at, storage::FieldType type, const CellRule *rule);

// The value that every row gets for a column that the file lacks.
QVariant MissingCell(const TableLayout &table, int column);
// True for a column that the recordset over the table may lack, as early versions did not have it.
bool MayBeMissing(const storage::Recordset &rows, const TableLayout &table, int column);

// The beginning of a value, in one line, to be shown to the user.
QString ShortText(const QString &value);

} // namespace document
