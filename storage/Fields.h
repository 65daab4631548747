// Small helpers on tables and fields, and files that go into long binary fields and out again.
#pragma once

#include "storage/Database.h"

namespace storage {

// Adds the field to the table unless it has one of that name. `size` is given only to text fields; 0 for
// none.
void AddField(Database &database, const QString &table, const QString &field, FieldType type, int size = 0);

// True when there is such a field, without regard to case.
bool FieldExists(const TableDef &table, const QString &field);
bool FieldExists(const Recordset &rows, const QString &field);
// True when there is such a table, without regard to case.
bool TableExistsDB(const Database &database, const QString &table);

// True for no recordset at all, and for one that is at its beginning and its end at once.
bool RsIsEmpty(const Recordset *rows);

// The whole file goes into the long binary field of a row that AddNew or Edit has begun: in pieces, behind
// what was appended before, or as one value. Error 53 "File not found" with the path.
void ReadFileIntoField(const QString &path, Recordset &rows, const QString &field);
void ReadBinaryFile(const QString &path, Recordset &rows, const QString &field);

// The field's bytes are written to the beginning of the file, which is made when it is missing; what a longer
// file holds behind them stays. The file changes as a whole or not at all. Errors are those of support's
// AtomicFile.
void WriteFileFromField(const QString &path, const Recordset &rows, const QString &field);
// The same; an empty `path` becomes the name of a new temporary file first. The file is the caller's to
// delete.
void WriteBinaryFile(QString &path, const Recordset &rows, const QString &field);

} // namespace storage
