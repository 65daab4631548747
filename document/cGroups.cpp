#include "document/cGroups.h"

#include "document/MapSchema.h"
#include "document/TemplateFile.h"
#include "storage/Database.h"

#include <QStringList>

namespace document {

namespace {

constexpr QLatin1Char kComma(',');

// For each piece of `list` the `wanted` text of every group whose `given` text is the piece.
QString Translate(const cGroups &groups, const QString &list, QString cGroup::*given,
                  QString cGroup::*wanted) {
    if (list.isEmpty()) return {};
    QStringList found;
    for (const QString &piece : list.split(kComma))
        for (const cGroup &group : groups)
            if (group.*given == piece) found.append(group.*wanted);
    return found.join(kComma);
}

} // namespace

cGroup *cGroups::FirstSelectedGroup() const {
    for (cGroup &group : *this)
        if (group.Selected) return &group;
    return nullptr;
}

void cGroups::LoadDefaults() {
    support::PassOn("LoadDefaults", [&] {
        storage::Database database = storage::OpenDatabase(TemplatePath());
        ReadGroups(database.OpenRecordset(SelectAll(schema::kGroups)), *this);
    });
}

cGroup &cGroups::Create(const QString &name, bool selected) {
    auto group = std::make_unique<cGroup>();
    group->GroupName = name;
    group->Selected = selected;
    const QString key = group->Key;
    return items_.Add(key, std::move(group));
}

cGroup &cGroups::Take(const cGroup &group) { return items_.Add(group.Key, std::make_unique<cGroup>(group)); }

QString cGroups::GroupNameForKey(const QString &keys) const {
    return Translate(*this, keys, &cGroup::Key, &cGroup::GroupName);
}

QString cGroups::KeyForGroupName(const QString &names) const {
    return Translate(*this, names, &cGroup::GroupName, &cGroup::Key);
}

} // namespace document
