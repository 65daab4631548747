// One open connection of the library, shared by a database and by what reads from it, so that it ends with
// the last.
#pragma once

#include "storage/Database.h"

#include <memory>
#include <sqlite3.h>
#include <SQLiteCpp/Database.h>
#include <string_view>

namespace storage {

struct FinalizeStatement {
    void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

class Connection {
public:
    // Opens `file` (":memory:" for none) with the library's flags; errors speak of `name`.
    Connection(const QString &file, int flags, const QString &name);

    sqlite3 *Handle() const { return database_.getHandle(); }
    SQLite::Database &Library() { return database_; }
    const QString &Name() const { return name_; }

    // The first statement of `sql`; `rest` gets what stands behind it. Null when there is only blank text.
    Statement Prepare(const QString &sql, QString *rest = nullptr) const;
    // Raises the error of a result code that is none of OK, ROW and DONE.
    void Check(int code, const QString &sql = QString()) const;
    // Steps a statement to its end.
    void RunToEnd(sqlite3_stmt *statement, const QString &sql) const;
    // Runs SQL of the facade's own.
    void Run(const QString &sql);

private:
    QString name_;
    SQLite::Database database_;
};

// Binds `value` to the parameter `index`, counted from 1.
void BindValue(const Connection &connection, sqlite3_stmt *statement, int index, const QVariant &value);
// Binds all; 3061 when the statement asks for more.
void BindAll(const Connection &connection, sqlite3_stmt *statement, const std::vector<Parameter> &values);

} // namespace storage
