#include "storage/Fields.h"

#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"

namespace storage {

namespace {

constexpr qint64 kChunk = 1 << 20;

bool SameName(const QString &a, const QString &b) { return a.toUpper() == b.toUpper(); }

QByteArray FieldBytes(const Recordset &rows, const QString &field) { return rows.Bytes(rows.Column(field)); }

} // namespace

bool FieldExists(const TableDef &table, const QString &field) {
    for (const Field &existing : table.fields) {
        if (SameName(existing.name, field)) return true;
    }
    return false;
}

bool FieldExists(const Recordset &rows, const QString &field) {
    for (int i = 0; i < rows.FieldCount(); ++i) {
        if (SameName(rows.FieldName(i), field)) return true;
    }
    return false;
}

bool TableExistsDB(const Database &database, const QString &table) {
    for (const TableDef &existing : database.TableDefs()) {
        if (SameName(existing.name, table)) return true;
    }
    return false;
}

void AddField(Database &database, const QString &table, const QString &field, FieldType type, int size) {
    if (!FieldExists(database.Table(table), field)) database.AppendField(table, {field, type, size});
}

bool RsIsEmpty(const Recordset *rows) { return !rows || (rows->EndOfFile() && rows->BeginningOfFile()); }

void ReadFileIntoField(const QString &path, Recordset &rows, const QString &field) {
    const QByteArray bytes = support::ReadWholeFile(path);
    if (bytes.isEmpty()) rows.AppendChunk(field, bytes);
    for (qsizetype at = 0; at < bytes.size(); at += kChunk) rows.AppendChunk(field, bytes.mid(at, kChunk));
}

void ReadBinaryFile(const QString &path, Recordset &rows, const QString &field) {
    rows.Set(field, support::ReadWholeFile(path));
}

void WriteFileFromField(const QString &path, const Recordset &rows, const QString &field) {
    QByteArray bytes = FieldBytes(rows, field);
    if (support::FileExists(path)) bytes += support::ReadWholeFile(path).mid(bytes.size());
    support::AtomicFile file(path);
    file.Write(bytes);
    file.Commit();
}

void WriteBinaryFile(QString &path, const Recordset &rows, const QString &field) {
    if (path.isEmpty()) path = support::GetTempFile();
    WriteFileFromField(path, rows, field);
}

} // namespace storage
