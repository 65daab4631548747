// The rows of one table of a file with damaged pages.
#pragma once

#include "storage/Connection.h"

#include <deque>
#include <functional>
#include <vector>

namespace storage {

// Walks over the rows by ranges of their row numbers: from both ends up to the damage, then into the halves
// of what lies between, so that a damaged page costs its own rows alone. The number of attempts is bounded.
class TableScan {
public:
    struct Range {
        sqlite3_int64 low = 0, high = 0; // both included
    };
    // A row: its number is the first value of the statement, the columns follow.
    using TakeRow = std::function<void(sqlite3_int64 number, sqlite3_stmt *row)>;
    // One cell of a row of which not all can be read, as the second value of the statement; column -1 and no
    // statement behind the last one.
    using TakeCell = std::function<void(sqlite3_int64 number, int column, sqlite3_stmt *cell)>;

    // `most` bounds the row numbers that are tried where nothing else tells them.
    TableScan(Connection &connection, const QString &table, const QStringList &columns, sqlite3_int64 most);

    void Run(const TakeRow &takeRow, const TakeCell &takeCell);
    // The row numbers that could not be read, in ascending order. Not each of them need have had a row.
    const std::vector<Range> &Lost() const { return lost_; }

private:
    struct Walk {
        bool whole = false;     // no damage was met
        bool any = false;       // a row was taken
        sqlite3_int64 last = 0; // the number of the last one
    };
    Walk Up(sqlite3_stmt *statement, const Range &range, const TakeRow &take);
    Walk Down(sqlite3_stmt *statement, const Range &range, const TakeRow &take);
    Walk WalkOver(sqlite3_stmt *statement, const Range &range, bool up, const TakeRow &take);
    void Divide(Range range, const TakeRow &takeRow, const TakeCell &takeCell);
    void TakeCells(sqlite3_int64 number, const TakeCell &take);
    void Lose(const Range &range);

    std::vector<Statement> cells_; // of one row, one for each column
    Statement forward_, backward_, number_;
    sqlite3_int64 most_;
    int attempts_ = 0;
    std::deque<Range> open_;
    std::vector<Range> lost_;
};

} // namespace storage
