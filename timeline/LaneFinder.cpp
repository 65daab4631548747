#include "timeline/LaneFinder.h"

#include "diagram/model/Node.h"
#include "document/clsfrmMain.h"
#include "document/Tags.h"

namespace timeline {

LaneFinder::LaneFinder(document::clsfrmMain &map, Lanes lanes)
    : key_(lanes == Lanes::Group ? document::tags::kGroup : document::tags::kLevel), lanes_(lanes) {
    if (lanes == Lanes::Level)
        for (const document::cLevel &level : map.Levels()) Add(level.Key, level.LevelName);
    if (lanes == Lanes::Group)
        for (const document::cGroup &group : map.Groups()) Add(group.Key, group.GroupName);
}

void LaneFinder::Add(const QString &key, const QString &name) {
    numbers_.insert(key, int(names_.size()));
    names_ << name;
}

int LaneFinder::LaneOf(const diagram::Node &node) const {
    if (lanes_ == Lanes::None) return 0;
    return numbers_.value(document::GetTag(node, key_).section(u',', 0, 0), int(numbers_.size()));
}

} // namespace timeline
