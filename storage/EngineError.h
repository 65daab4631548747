// The engine's errors: numbers with their texts, and how the library's result codes become them.
#pragma once

#include "support/Error.h"

#include <QString>

struct sqlite3;

namespace storage {

// An error of the engine with the source "Storage.Database".
support::Error EngineError(long number, const QString &description);

// The errors that name a file.
support::Error FileNotFound(const QString &path);       // 3024
support::Error CannotOpenFile(const QString &path);     // 3051
support::Error UnrecognizedFormat(const QString &path); // 3343
support::Error DamagedDatabase(const QString &path);    // 3049
support::Error DatabaseExists();                        // 3204
support::Error FieldNotFound();                         // 3265
support::Error NoCurrentRecord();                       // 3021
support::Error ReadOnlyDatabase();                      // 3027
support::Error TooFewParameters(int expected);          // 3061

// The error for the result code that a call on `handle` gave just now. `sql` is the statement, if there was
// one; `path` the database's file.
support::Error LibraryError(sqlite3 *handle, int code, const QString &path, const QString &sql);

} // namespace storage
