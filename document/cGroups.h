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
    // One that was kept together with its key.
    cGroup &Take(const cGroup &group);
    // A new group, added under its own key.
    cGroup &Create(const QString &name, bool selected);
    // Both take and give lists separated by commas, in the order of the argument. Pieces without a match are
    // left out.
    QString GroupNameForKey(const QString &keys) const;
    QString KeyForGroupName(const QString &names) const;
};

} // namespace document
