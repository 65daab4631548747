// The rows of a table as pieces.
#pragma once

#include "product/help/Flow.h"

#include <QTextTable>

namespace product {

// The widths of columns that would take `natural` each, `width` together: those that want less than their
// share get what they want, the others share what is left by the roots of what they want; the widest takes
// the rest.
std::vector<double> ColumnWidths(const std::vector<double> &natural, double width);

// The first row is the table's head, which is shown again where the table goes on on the next page. Rows are
// never divided.
Flow RowsOf(const QTextTable &table, double width);

} // namespace product
