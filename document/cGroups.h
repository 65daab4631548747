// The groups of a map.
#pragma once

#include "document/cGroup.h"
#include "document/KeyedCollection.h"

namespace document {

class cGroups : public Pool<cGroup> {
public:
    // The first ticked group in the order of the collection, or null.
    cGroup *FirstSelectedGroup() const;
    // Adds the groups of template.tpl. Error 3024 when that file is missing.
    void LoadDefaults();
    // Adds a copy under the key that it already has. Error 457 for a key that is taken.
    cGroup &Take(const cGroup &group);
    // A new group, added under its own key.
    cGroup &Create(const QString &name, bool selected);
    // The names for a list of keys, and the keys for a list of names. Lists are separated by commas; the
    // result has the order of the argument, without the pieces that match no group.
    QString GroupNameForKey(const QString &keys) const;
    QString KeyForGroupName(const QString &names) const;
};

} // namespace document
