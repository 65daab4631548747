#include "document/TemplateFile.h"

#include "document/cGroups.h"
#include "document/cLevels.h"
#include "document/MapSchema.h"
#include "support/AtomicFile.h"
#include "support/Files.h"

namespace document {

QString TemplatePath() {
    return support::AddBackslash(support::ProgramPath()) + QStringLiteral("template.tpl");
}

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

void WriteDefaultLevels(std::span<const LevelRow> levels) {
    support::AtomicFile file(TemplatePath());
    file.Write(support::ReadWholeFile(TemplatePath()));
    storage::Database database = storage::OpenForBuilding(file.Path());
    database.BeginTrans();
    database.Execute(QStringLiteral("DELETE FROM [Levels]"));
    for (const LevelRow &level : levels)
        database.Execute(
            QStringLiteral("INSERT INTO [Levels] ([Level], [Selected], [Colour]) VALUES (?, ?, ?)"),
            storage::kFailOnError, {level.name, level.selected, level.colour});
    database.CommitTrans(storage::kForceFlush);
    database.Close();
    file.Commit();
}

} // namespace document
