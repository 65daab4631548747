#include "document/ViewRows.h"

#include "document/clsfrmMain.h"
#include "document/MapSchema.h"
#include "storage/Fields.h"

#include <algorithm>

namespace document {

namespace {

using schema::kFilterViews;
using namespace schema::view;

bool HasTable(const storage::Database &database) {
    return storage::TableExistsDB(database, NameOf(kFilterViews));
}

void WriteRow(storage::Database &database, const QString &view, const QVariant &level,
              const QVariant &group) {
    database.Execute(InsertInto(kFilterViews), storage::kFailOnError, {view, level, group});
}

void WriteView(storage::Database &database, clsfrmMain &settings, const FilterView &view) {
    WriteRow(database, view.Name, {}, {});
    for (const QString &level : LevelNames(settings, view)) WriteRow(database, view.Name, level, {});
    for (const QString &group : GroupNames(settings, view)) WriteRow(database, view.Name, {}, group);
}

// Another program may have a table of this name.
bool HasColumns(const storage::Recordset &rows) {
    for (int column = 0; column < kCount; ++column)
        if (rows.FindColumn(NameOf(kFilterViews, column)) < 0) return false;
    return true;
}

FilterView &ViewNamed(FilterViews &views, const QString &name) {
    const auto found = std::ranges::find_if(
        views, [&](const FilterView &view) { return view.Name.compare(name, Qt::CaseInsensitive) == 0; });
    return found != views.end() ? *found : views.emplace_back(FilterView{name, {}, {}});
}

template <typename Member>
ViewTick TickFor(const Pool<Member> &pool, QString Member::*nameOf, const QString &name) {
    for (const Member &member : pool)
        if (member.*nameOf == name) return {member.Key, name};
    return {QString(), name};
}

void ReadRow(const storage::Recordset &row, const Columns &at, clsfrmMain &settings) {
    const QString name = row.Text(at[kView]).trimmed();
    if (name.isEmpty()) return;
    FilterView &view = ViewNamed(settings.Views, name);
    const QString level = row.Text(at[kLevel]), group = row.Text(at[kGroup]);
    if (!level.isEmpty()) view.Levels.push_back(TickFor(settings.Levels(), &cLevel::LevelName, level));
    if (!group.isEmpty()) view.Groups.push_back(TickFor(settings.Groups(), &cGroup::GroupName, group));
}

} // namespace

void WriteViews(storage::Database &database, clsfrmMain &settings) {
    if (HasTable(database))
        database.Execute(QStringLiteral("DELETE FROM [%1]").arg(NameOf(kFilterViews)), storage::kFailOnError);
    else if (!settings.Views.empty())
        CreateTable(database, kFilterViews);
    for (const FilterView &view : settings.Views) WriteView(database, settings, view);
}

void ReadViews(storage::Database &database, clsfrmMain &settings) {
    settings.Views.clear();
    if (!HasTable(database)) return;
    storage::Recordset rows = database.OpenRecordset(SelectAll(kFilterViews));
    if (!HasColumns(rows)) return;
    const Columns at(rows, kFilterViews);
    for (; !rows.EndOfFile(); rows.MoveNext()) ReadRow(rows, at, settings);
}

} // namespace document
