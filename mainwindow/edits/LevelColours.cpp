#include "mainwindow/edits/LevelColours.h"

#include "document/cLevels.h"
#include "document/Tags.h"
#include "mainwindow/edits/HandlerStep.h"

namespace mainwindow {

namespace {

// The levels that have another colour now, by their keys.
LevelColours Changed(const LevelColours &now, const LevelColours &former) {
    LevelColours changed;
    for (auto level = now.begin(); level != now.end(); ++level)
        if (former.value(level.key(), level.value()) != level.value())
            changed.insert(level.key(), level.value());
    return changed;
}

} // namespace

LevelColours ColoursOf(const document::cLevels &levels) {
    LevelColours colours;
    for (int i = 1; i <= levels.count(); ++i) colours.insert(levels.Item(i).Key, levels.Item(i).Color);
    return colours;
}

bool FollowLevels(diagram::Surface &surface, const document::cLevels &levels, const LevelColours &former) {
    const LevelColours changed = Changed(ColoursOf(levels), former);
    if (changed.isEmpty()) return false;
    const HandlerStep step(surface);
    bool repainted = false;
    for (diagram::Node &node : surface.Nodes()) {
        const auto level = changed.find(document::GetTag(node, document::tags::kLevel));
        if (level == changed.end() || node.FillColor() != former[level.key()]) continue;
        node.SetFillColor(level.value());
        repainted = true;
    }
    return repainted;
}

} // namespace mainwindow
