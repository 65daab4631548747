// The yardstick of loading and saving: the rows of a map written and read with prepared statements, no more.
#pragma once

#include <QString>

namespace bench {

// Copies the rows of every table of `map` into memory once, so that WriteRows and ReadRows handle just the
// same rows.
class RawRows {
public:
    explicit RawRows(const QString &map);
    ~RawRows();
    // A new database with the same tables and rows in one transaction, with the library's default durability.
    void Write(const QString &path) const;
    // Every value of every row into one plain struct; gives the number of rows.
    long Read(const QString &path) const;

private:
    struct State;
    State *state_;
};

} // namespace bench
