#include "document/LevelLanes.h"

#include "diagram/model/Node.h"
#include "document/cGroups.h"
#include "document/cLevels.h"
#include "document/Tags.h"

#include <QHash>

namespace document {

std::function<int(const diagram::Node &node)> LanesByLevel(const cLevels &levels) {
    QHash<QString, int> lanes;
    for (int i = 1; i <= levels.count(); ++i) lanes.insert(levels.Item(i).Key, i - 1);
    return
        [lanes](const diagram::Node &node) { return lanes.value(EntryOfTag(node.Tag(), tags::kLevel), -1); };
}

std::function<int(const diagram::Node &node)> ClustersByGroup(const cGroups &groups) {
    QHash<QString, int> clusters;
    for (int i = 1; i <= groups.count(); ++i) clusters.insert(groups.Item(i).Key, i - 1);
    return [clusters](const diagram::Node &node) {
        for (const QString &key : EntryOfTag(node.Tag(), tags::kGroup).split(u','))
            if (const int cluster = clusters.value(key, -1); cluster >= 0) return cluster;
        return -1;
    };
}

std::function<int(const diagram::Node &node)> ClustersOf(Together together, const cLevels &levels,
                                                         const cGroups &groups) {
    if (together == Together::Levels) return LanesByLevel(levels);
    if (together == Together::Groups) return ClustersByGroup(groups);
    return {};
}

} // namespace document
