#include "document/OpenMap.h"

#include "document/ItemColumns.h"
#include "document/LastPath.h"
#include "document/TemplateFile.h"
#include "storage/Fields.h"
#include "storage/FileForm.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"

#include <algorithm>

namespace document {

namespace {

void AddColumn(storage::Database &database, const TableLayout &table, int column) {
    storage::AddField(database, NameOf(table), NameOf(table, column),
                      table.columns[static_cast<std::size_t>(column)].type);
}

bool HasColumn(const storage::Database &database, const TableLayout &table, int column) {
    return storage::FieldExists(database.Table(NameOf(table)), NameOf(table, column));
}

void Fill(storage::Database &database, const char *sql, const TableLayout &table, int column) {
    database.Execute(QString::fromLatin1(sql).arg(NameOf(table), Bracketed(table, column)),
                     storage::kFailOnError);
}

template <typename ItemColumns>
bool LacksLater(const storage::Database &database, const TableLayout &table, const ItemColumns &columns) {
    return std::ranges::any_of(columns, [&](const auto &column) {
        return column.isLater && !HasColumn(database, table, column.position);
    });
}

template <typename ItemColumns>
void AddLater(storage::Database &database, const TableLayout &table, const ItemColumns &columns) {
    for (const auto &column : columns) {
        if (!column.isLater || HasColumn(database, table, column.position)) continue;
        AddColumn(database, table, column.position);
        if (!column.usual) continue;
        database.Execute(QStringLiteral("UPDATE [%1] SET %2=%3")
                             .arg(NameOf(table), Bracketed(table, column.position))
                             .arg(column.usual()),
                         storage::kFailOnError);
    }
}

} // namespace

void UpgradeMap(storage::Database &database) {
    using schema::kSlices;
    AddLater(database, schema::kNodes, kNodeColumns);
    AddLater(database, schema::kLinks, kLinkColumns);
    if (!HasColumn(database, kSlices, schema::slice::kxZoom)) {
        AddColumn(database, kSlices, schema::slice::kxZoom);
        AddColumn(database, kSlices, schema::slice::kyZoom);
        Fill(database, "UPDATE [%1] SET %2=0 WHERE %2 IS NULL", kSlices, schema::slice::kxZoom);
        Fill(database, "UPDATE [%1] SET %2=0 WHERE %2 IS NULL", kSlices, schema::slice::kyZoom);
    }
}

// Errors are swallowed: whoever opens the file next raises them.
bool IsOldMap(const QString &path) {
    try {
        if (storage::RecogniseFile(path) != storage::FileForm::Native) return false;
        const storage::Database database = storage::OpenDatabase(path);
        return LacksLater(database, schema::kNodes, kNodeColumns) ||
               LacksLater(database, schema::kLinks, kLinkColumns) ||
               !HasColumn(database, schema::kSlices, schema::slice::kxZoom);
    } catch (const support::Error &) {
        return false;
    }
}

std::optional<storage::Database> OpenMap(QString &sFile, bool bNew) {
    if (sFile.isEmpty()) sFile = GetMapFile(bNew);
    if (sFile.isEmpty()) return std::nullopt;
    if (bNew) {
        if (support::FileExists(sFile)) support::Kill(sFile);
        support::CopyFileTo(TemplatePath(), sFile);
    }
    storage::Database database = storage::OpenDatabase(sFile);
    UpgradeMap(database);
    return database;
}

std::optional<storage::Database> OpenMapToRead(QString &sFile) {
    if (sFile.isEmpty()) sFile = GetMapFile(false);
    if (sFile.isEmpty()) return std::nullopt;
    return storage::OpenToRead(sFile);
}

} // namespace document
