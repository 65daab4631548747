#include "document/LevelLanes.h"

#include "diagram/model/Node.h"
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

} // namespace document
