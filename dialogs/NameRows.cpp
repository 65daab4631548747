#include "dialogs/NameRows.h"

#include "document/cGroups.h"
#include "document/cLevels.h"
#include "document/MapSchema.h"
#include "document/TemplateFile.h"

#include <QHash>
#include <QSet>

namespace dialogs {

namespace {

// By key; rows that are new aren't in it.
QHash<QString, QString> NamesByKey(const NameRows &rows) {
    QHash<QString, QString> names;
    for (const NameRow &row : rows)
        if (!row.key.isEmpty()) names.insert(row.key, row.name);
    return names;
}

QSet<QString> NamesOf(const NameRows &rows) {
    QSet<QString> names;
    for (const NameRow &row : rows) names.insert(row.name);
    return names;
}

document::cLevel &MemberOf(NameRow &row, document::cLevels &levels) {
    return row.key.isEmpty() ? levels.Create(row.name, true, 0) : levels.Item(row.key);
}

document::cGroup &MemberOf(NameRow &row, document::cGroups &groups) {
    return row.key.isEmpty() ? groups.Create(row.name, true) : groups.Item(row.key);
}

} // namespace

NameRows RowsOf(const document::cLevels &levels) {
    NameRows rows;
    for (const document::cLevel &level : levels)
        rows.push_back({level.Key, level.LevelName, level.Selected, level.Color});
    return rows;
}

NameRows RowsOf(const document::cGroups &groups) {
    NameRows rows;
    for (const document::cGroup &group : groups)
        rows.push_back({group.Key, group.GroupName, group.Selected, 0});
    return rows;
}

void StoreRows(NameRows &rows, document::cLevels &levels) {
    for (NameRow &row : rows) {
        document::cLevel &level = MemberOf(row, levels);
        row.key = level.Key;
        level.LevelName = row.name;
        level.Selected = row.selected;
        level.Color = row.colour;
    }
}

void StoreRows(NameRows &rows, document::cGroups &groups) {
    for (NameRow &row : rows) {
        document::cGroup &group = MemberOf(row, groups);
        row.key = group.Key;
        group.GroupName = row.name;
        group.Selected = row.selected;
    }
}

QString StoreDefaultLevels(const NameRows &rows) {
    std::vector<document::LevelRow> levels;
    for (const NameRow &row : rows) levels.push_back({row.name, row.selected, row.colour});
    return document::WriteDefaultLevels(levels);
}

QString StoreDefaultGroups(const NameRows &rows) {
    std::vector<document::GroupRow> groups;
    for (const NameRow &row : rows) groups.push_back({row.name, row.selected});
    return document::WriteDefaultGroups(groups);
}

NameRows DeletedRows(const NameRows &former, const NameRows &rows) {
    const QHash<QString, QString> left = NamesByKey(rows);
    NameRows deleted;
    for (const NameRow &row : former)
        if (!left.contains(row.key)) deleted.push_back(row);
    return deleted;
}

std::optional<NameFault> FindFault(const NameRows &former, const NameRows &rows) {
    const QHash<QString, QString> formerNames = NamesByKey(former);
    const QSet<QString> deleted = NamesOf(DeletedRows(former, rows));
    QSet<QString> taken;
    for (std::size_t at = 0; at < rows.size(); ++at) {
        const NameRow &row = rows[at];
        const bool kept = formerNames.contains(row.key) && formerNames.value(row.key) == row.name;
        if (row.name.trimmed().isEmpty()) return NameFault{at, NameFault::Kind::Empty};
        if (taken.contains(row.name)) return NameFault{at, NameFault::Kind::Double};
        if (!kept && deleted.contains(row.name)) return NameFault{at, NameFault::Kind::Deleted};
        taken.insert(row.name);
    }
    return std::nullopt;
}

} // namespace dialogs
