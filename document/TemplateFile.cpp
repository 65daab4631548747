#include "document/TemplateFile.h"

#include "document/cGroups.h"
#include "document/cLevels.h"
#include "document/MapSchema.h"
#include "settings/DeliveredFiles.h"
#include "support/AtomicFile.h"

#include <functional>

namespace document {

namespace {

const QString kName = QStringLiteral("template.tpl");

// Writes the empty map with only those rows in the table that `add` adds. Gives the path of the file.
QString ReplaceRows(const TableLayout &table, const std::function<void(storage::Database &)> &add) {
    support::AtomicFile file(settings::PathToWrite(kName));
    file.Write(support::ReadWholeFile(TemplatePath()));
    storage::Database database = storage::OpenForBuilding(file.Path());
    database.BeginTrans();
    database.Execute(QStringLiteral("DELETE FROM [%1]").arg(NameOf(table)));
    add(database);
    database.CommitTrans(storage::kForceFlush);
    database.Close();
    file.Commit();
    return file.Target();
}

} // namespace

QString TemplatePath() { return settings::PathToRead(kName); }

void ReadLevels(storage::Recordset rows, cLevels &levels) {
    const Columns at(rows, schema::kLevels);
    for (; !rows.EndOfFile(); rows.MoveNext())
        levels.Create(rows.Text(at[schema::level::kLevel]), rows.Boolean(at[schema::level::kSelected]),
                      rows.Long(at[schema::level::kColour]));
}

void ReadGroups(storage::Recordset rows, cGroups &groups) {
    const Columns at(rows, schema::kGroups);
    for (; !rows.EndOfFile(); rows.MoveNext())
        groups.Create(rows.Text(at[schema::group::kGroup]), rows.Boolean(at[schema::group::kSelected]));
}

QString WriteDefaultLevels(std::span<const LevelRow> levels) {
    return ReplaceRows(schema::kLevels, [levels](storage::Database &database) {
        for (const LevelRow &level : levels)
            database.Execute(InsertInto(schema::kLevels), storage::kFailOnError,
                             {level.name, level.selected, level.colour});
    });
}

QString WriteDefaultGroups(std::span<const GroupRow> groups) {
    return ReplaceRows(schema::kGroups, [groups](storage::Database &database) {
        for (const GroupRow &group : groups)
            database.Execute(InsertInto(schema::kGroups), storage::kFailOnError,
                             {group.name, group.selected});
    });
}

} // namespace document
