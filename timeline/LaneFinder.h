// Which lane beside the strip a node belongs to, by its level or its groups.
#pragma once

#include "timeline/AtDates.h"

#include <QHash>
#include <QString>
#include <QStringList>

namespace diagram {
class Node;
}
namespace document {
class clsfrmMain;
}

namespace timeline {

// Lanes are numbered from 0 in the order of the map's levels or groups; nodes without one come behind.
class LaneFinder {
public:
    LaneFinder(document::clsfrmMain &map, Lanes lanes);

    // Of several groups the first counts. 0 for every node where there are no lanes.
    int LaneOf(const diagram::Node &node) const;
    // Empty for the lane of the nodes without a level or a group.
    QString NameOf(int lane) const { return lane < names_.size() ? names_[lane] : QString(); }

private:
    void Add(const QString &key, const QString &name);

    QString key_; // of the tag that holds the level or the groups
    Lanes lanes_;
    QHash<QString, int> numbers_; // by the keys of levels or groups
    QStringList names_;
};

} // namespace timeline
