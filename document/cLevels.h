// The levels of a map.
#pragma once

#include "document/cLevel.h"
#include "document/KeyedCollection.h"

namespace document {

class cLevels : public Pool<cLevel> {
public:
    // The first ticked level in the order of the collection, or null.
    cLevel *FirstSelectedLevel() const;
    // Adds the levels of template.tpl. Error 3024 when that file is missing.
    void LoadDefaults();
    // Adds a copy under the key that it already has. Error 457 for a key that is taken.
    cLevel &Take(const cLevel &level);
    // A new level, added under its own key.
    cLevel &Create(const QString &name, bool selected, support::Colour colour);
    // Exact comparisons; empty when nothing matches.
    QString LevelNameForKey(const QString &key) const;
    QString KeyForLevelName(const QString &name) const;
};

} // namespace document
