#include "document/Filter.h"

#include "diagram/model/Sights.h"
#include "diagram/model/Surface.h"
#include "document/cGroups.h"
#include "document/cLevels.h"
#include "document/Tags.h"

#include <QHash>
#include <vector>

namespace document {

namespace {

constexpr QLatin1Char kComma(',');
constexpr int kShortestList = 3; // two commas and something between them

// Elements that equal the name of a member become its key.
template <typename Pool, typename Name>
QString KeysOf(const QString &names, const Pool &pool, Name name) {
    QStringList elements = (QStringLiteral(",,") + names + kComma).split(kComma);
    for (QString &element : elements) {
        if (element.isEmpty()) continue;
        for (const auto &member : pool) {
            if (name(member) != element) continue;
            element = member.Key;
            break;
        }
    }
    return elements.join(kComma);
}

bool IsIn(const QString &element, const QString &list) {
    return list.indexOf(element, 1, Qt::CaseInsensitive) >= 0;
}

// What a node's tag says of it; the same for all nodes with that tag.
enum class Sight { AsItIs, Shown, Hidden };

Sight SightOf(const QString &tag, const FilterKeys &keys) {
    const QString group = kComma + EntryOfTag(tag, tags::kGroup) + kComma;
    const QString level = kComma + EntryOfTag(tag, tags::kLevel) + kComma;
    if (group.size() < kShortestList || level.size() < kShortestList) return Sight::AsItIs;
    return NodeInGroup(group, keys.groups) && IsIn(level, keys.levels) ? Sight::Shown : Sight::Hidden;
}

// Calls `hide(item, hidden)` for each node that has a level and a group, and for each link that begins at
// one.
template <typename Surface, typename Hide, typename Hidden>
void Filter(Surface &surface, const FilterKeys &keys, Hide hide, Hidden isHidden) {
    QHash<QString, Sight> sights;
    std::vector<const diagram::Node *> filtered;
    for (auto &node : surface.Nodes()) {
        auto known = sights.constFind(node.Tag());
        if (known == sights.constEnd()) known = sights.insert(node.Tag(), SightOf(node.Tag(), keys));
        if (*known == Sight::AsItIs) continue;
        hide(node, *known == Sight::Hidden);
        filtered.push_back(&node);
    }
    for (const diagram::Node *origin : filtered)
        for (diagram::Link *link : origin->Links()) {
            const diagram::Node &destination = link->Destination();
            if (&link->Source() == origin)
                hide(*link, isHidden(*origin) || (!destination.Marked() && isHidden(destination)));
        }
}

} // namespace

bool NodeInGroup(const QString &sNodeGroup, const QString &sGroupText) {
    for (const QString &key : sNodeGroup.split(kComma, Qt::SkipEmptyParts))
        if (IsIn(key, sGroupText)) return true;
    return false;
}

FilterKeys KeysForFilter(const QString &groupNames, const QString &levelNames, const cGroups &groups,
                         const cLevels &levels) {
    return {KeysOf(groupNames, groups, [](const cGroup &group) { return group.GroupName; }),
            KeysOf(levelNames, levels, [](const cLevel &level) { return level.LevelName; })};
}

// `isHidden` looks at the nodes themselves: Filter hides all nodes before it looks at links.
void ApplyFilter(diagram::Surface &surface, const FilterKeys &keys) {
    Filter(
        surface, keys, [](auto &item, bool hidden) { item.SetHidden(hidden); },
        [](const diagram::Node &node) { return node.Hidden(); });
}

diagram::Sights PreviewFilter(const diagram::Surface &surface, const FilterKeys &keys) {
    diagram::Sights sights;
    Filter(
        surface, keys, [&](const auto &item, bool hidden) { sights.Set(item, hidden); },
        [&](const diagram::Node &node) { return sights.Hides(node); });
    return sights;
}

} // namespace document
