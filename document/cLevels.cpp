#include "document/cLevels.h"

#include "document/MapSchema.h"
#include "document/TemplateFile.h"
#include "storage/Database.h"

namespace document {

cLevel *cLevels::FirstSelectedLevel() const {
    for (cLevel &level : *this)
        if (level.Selected) return &level;
    return nullptr;
}

void cLevels::LoadDefaults() {
    support::PassOn("LoadDefaults", [&] {
        storage::Database database = storage::OpenDatabase(TemplatePath());
        ReadLevels(database.OpenRecordset(SelectAll(schema::kLevels)), *this);
    });
}

cLevel &cLevels::Create(const QString &name, bool selected, support::Colour colour) {
    auto level = std::make_unique<cLevel>();
    level->LevelName = name;
    level->Selected = selected;
    level->Color = colour;
    const QString key = level->Key;
    return items_.Add(key, std::move(level));
}

cLevel &cLevels::Take(const cLevel &level) { return items_.Add(level.Key, std::make_unique<cLevel>(level)); }

QString cLevels::LevelNameForKey(const QString &key) const {
    if (key.isEmpty()) return {};
    for (const cLevel &level : *this)
        if (level.Key == key) return level.LevelName;
    return {};
}

QString cLevels::KeyForLevelName(const QString &name) const {
    for (const cLevel &level : *this)
        if (level.LevelName == name) return level.Key;
    return {};
}

} // namespace document
