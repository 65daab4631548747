#include "storage/TableScan.h"

#include "storage/text/FieldTypes.h"

#include <algorithm>
#include <limits>

namespace storage {

namespace {

constexpr int kMostAttempts = 100000;
constexpr sqlite3_int64 kLowest = std::numeric_limits<sqlite3_int64>::min();
constexpr sqlite3_int64 kHighest = std::numeric_limits<sqlite3_int64>::max();

QString ScanText(const QString &table, const QString &what, const char *order) {
    return QStringLiteral(
               "SELECT _rowid_, %1 FROM %2 NOT INDEXED WHERE _rowid_ BETWEEN ? AND ? ORDER BY _rowid_ %3")
        .arg(what, QuotedName(table), QLatin1String(order));
}

// The same numbers in ascending order, as few ranges as it takes.
std::vector<TableScan::Range> Joined(std::vector<TableScan::Range> ranges) {
    std::sort(ranges.begin(), ranges.end(), [](const auto &a, const auto &b) { return a.low < b.low; });
    std::vector<TableScan::Range> joined;
    for (const TableScan::Range &range : ranges) {
        if (!joined.empty() && joined.back().high >= range.low - 1)
            joined.back().high = std::max(joined.back().high, range.high);
        else
            joined.push_back(range);
    }
    return joined;
}

} // namespace

TableScan::TableScan(Connection &connection, const QString &table, const QStringList &columns,
                     sqlite3_int64 most)
    : forward_(connection.Prepare(ScanText(table, QStringLiteral("*"), "ASC"))),
      backward_(connection.Prepare(ScanText(table, QStringLiteral("*"), "DESC"))),
      number_(connection.Prepare(ScanText(table, QStringLiteral("NULL"), "ASC"))),
      most_(most) {
    for (const QString &column : columns)
        cells_.push_back(connection.Prepare(ScanText(table, QuotedName(column), "ASC")));
}

TableScan::Walk TableScan::Up(sqlite3_stmt *statement, const Range &range, const TakeRow &take) {
    return WalkOver(statement, range, true, take);
}

TableScan::Walk TableScan::Down(sqlite3_stmt *statement, const Range &range, const TakeRow &take) {
    return WalkOver(statement, range, false, take);
}

// Numbers that leave their order are damage too: pages that lead to each other would never end.
TableScan::Walk TableScan::WalkOver(sqlite3_stmt *statement, const Range &range, bool up,
                                    const TakeRow &take) {
    Walk walk;
    ++attempts_;
    sqlite3_reset(statement);
    sqlite3_bind_int64(statement, 1, range.low);
    sqlite3_bind_int64(statement, 2, range.high);
    int code = sqlite3_step(statement);
    for (; code == SQLITE_ROW; code = sqlite3_step(statement)) {
        const sqlite3_int64 number = sqlite3_column_int64(statement, 0);
        if (number < range.low || number > range.high) break;
        if (walk.any && (up ? number <= walk.last : number >= walk.last)) break;
        walk.any = true;
        walk.last = number;
        take(number, statement);
    }
    walk.whole = code == SQLITE_DONE;
    sqlite3_reset(statement);
    return walk;
}

void TableScan::Lose(const Range &range) {
    if (range.low <= range.high) lost_.push_back(range);
}

// The cells in front of the damage can often be read where the row cannot.
void TableScan::TakeCells(sqlite3_int64 number, const TakeCell &take) {
    const Walk row = Up(number_.get(), {number, number}, [](sqlite3_int64, sqlite3_stmt *) {});
    if (!row.any) return Lose({number, number});
    int read = 0;
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        bool found = false;
        Up(cells_[i].get(), {number, number}, [&](sqlite3_int64, sqlite3_stmt *cell) {
            found = true;
            take(number, static_cast<int>(i), cell);
        });
        read += found;
    }
    if (read == 0) return Lose({number, number});
    take(number, -1, nullptr);
}

// Reads the range from both ends; the halves of what lies between are left for later.
void TableScan::Divide(Range range, const TakeRow &takeRow, const TakeCell &takeCell) {
    const Walk up = Up(forward_.get(), range, takeRow);
    if (up.whole) return;
    if (up.any && up.last == range.high) return;
    if (up.any) range.low = up.last + 1;
    const Walk down = Down(backward_.get(), range, takeRow);
    if (down.whole) return;
    if (down.any && down.last == range.low) return;
    if (down.any) range.high = down.last - 1;
    // Row numbers are counted up from 1: there is nothing to try below, or above what the file has room for.
    if (range.low == kLowest) range.low = std::min<sqlite3_int64>(1, range.high);
    if (range.high == kHighest) range.high = std::max(range.low, most_);
    if (range.low >= range.high) return TakeCells(range.low, takeCell);
    const sqlite3_int64 middle = range.low + (range.high - range.low) / 2;
    open_.push_back({range.low, middle});
    open_.push_back({middle + 1, range.high});
}

void TableScan::Run(const TakeRow &takeRow, const TakeCell &takeCell) {
    open_.push_back({kLowest, kHighest});
    while (!open_.empty()) {
        const Range range = open_.front();
        open_.pop_front();
        if (attempts_ < kMostAttempts)
            Divide(range, takeRow, takeCell);
        else
            Lose(range);
    }
    lost_ = Joined(std::move(lost_));
}

} // namespace storage
