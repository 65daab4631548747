// The yardstick of loading and saving: the rows of a map written and read with prepared statements, no more.
#pragma once

#include <memory>
#include <QString>

namespace bench {

// The rows of every table of a map, in memory. Ends the bench with a message when SQLite reports an error.
class RawRows {
public:
    explicit RawRows(const QString &map);
    ~RawRows();
    RawRows(const RawRows &) = delete;
    RawRows &operator=(const RawRows &) = delete;
    // Writes a new database with the same tables and rows, in one transaction and with the library's default
    // durability.
    void Write(const QString &path) const;
    // Reads every value of every row of such a database into one plain struct; gives the number of rows.
    long Read(const QString &path) const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace bench
