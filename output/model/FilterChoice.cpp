#include "output/model/FilterChoice.h"

#include "document/clsfrmMain.h"
#include "document/Filter.h"
#include "document/SurfaceArray.h"
#include "support/Error.h"
#include "timeline/TimelineNodes.h"

#include <algorithm>

namespace output {

namespace {

const QString &NameOf(const document::cGroup &group) { return group.GroupName; }
const QString &NameOf(const document::cLevel &level) { return level.LevelName; }

template <typename Pool>
QStringList NamesOf(const Pool &pool) {
    QStringList names;
    for (const auto &member : pool) names << NameOf(member);
    return names;
}

template <typename Pool>
QStringList TickedNamesOf(const Pool &pool) {
    QStringList names;
    for (const auto &member : pool)
        if (member.Selected) names << NameOf(member);
    return names;
}

[[noreturn]] void RaiseUnknown(const char *what, const QString &name, const QStringList &known) {
    throw support::Error(support::kErrInvalidProcedureCall, QStringLiteral("ShowOnly"),
                         QStringLiteral("There is no %1 '%2'. The map has: %3")
                             .arg(QLatin1String(what), name, known.join(QLatin1String(", "))));
}

template <typename Pool>
void CheckNames(const Pool &pool, const std::optional<QStringList> &chosen, const char *what) {
    const QStringList known = NamesOf(pool);
    for (const QString &name : chosen.value_or(QStringList()))
        if (!known.contains(name)) RaiseUnknown(what, name, known);
}

template <typename Pool>
void Tick(Pool &pool, const std::optional<QStringList> &chosen) {
    if (!chosen) return;
    for (auto &member : pool) member.Selected = chosen->contains(NameOf(member));
}

bool ShowsMonths(const diagram::Surface &surface) {
    const std::vector<diagram::Node *> months = timeline::LocateTimelineNodes(surface);
    return std::any_of(months.begin(), months.end(), [](const auto *month) { return !month->Hidden(); });
}

void ApplyTo(diagram::Surface &surface, const document::FilterKeys &keys) {
    const bool showsMonths = ShowsMonths(surface);
    document::ApplyFilter(surface, keys);
    if (!showsMonths && !timeline::LocateTimelineNodes(surface).empty())
        timeline::ShowHideTimelineNodes(surface, false);
}

// Null without one.
const document::FilterView *ViewOf(const document::clsfrmMain &settings, const QString &name) {
    if (name.isEmpty()) return nullptr;
    if (const document::FilterView *view = document::FindView(settings, name)) return view;
    QStringList known;
    for (const document::FilterView &view : settings.Views) known << view.Name;
    RaiseUnknown("view", name, known);
}

} // namespace

QStringList ShowOnly(document::MapWindow &window, const FilterChoice &choice) {
    if (!choice.IsGiven()) return {};
    document::clsfrmMain &settings = window.clsSettings();
    CheckNames(settings.Levels(), choice.levels, "level");
    CheckNames(settings.Groups(), choice.groups, "group");
    QStringList missing;
    if (const document::FilterView *view = ViewOf(settings, choice.view))
        missing = document::TickView(settings, *view);
    Tick(settings.Levels(), choice.levels);
    Tick(settings.Groups(), choice.groups);
    const document::FilterKeys keys = document::KeysForFilter(TickedNamesOf(settings.Groups()).join(u','),
                                                              TickedNamesOf(settings.Levels()).join(u','),
                                                              settings.Groups(), settings.Levels());
    for (const int index : window.AddFlow1().Indices()) ApplyTo(window.AddFlow1()[index], keys);
    return missing;
}

} // namespace output
