#include "document/FilterViews.h"

#include "document/clsfrmMain.h"

#include <algorithm>

namespace document {

namespace {

const QString &NameOf(const cGroup &group) { return group.GroupName; }
const QString &NameOf(const cLevel &level) { return level.LevelName; }

template <typename Member>
const Member *MemberOf(const Pool<Member> &pool, const ViewTick &tick) {
    if (const Member *member = pool.NewEnum().Find(tick.Key)) return member;
    for (const Member &member : pool)
        if (NameOf(member) == tick.Name) return &member;
    return nullptr;
}

template <typename Member>
std::vector<ViewTick> TicksOf(const Pool<Member> &pool) {
    std::vector<ViewTick> ticks;
    for (const Member &member : pool)
        if (member.Selected) ticks.push_back({member.Key, NameOf(member)});
    return ticks;
}

template <typename Member>
QStringList NamesOf(const Pool<Member> &pool, const std::vector<ViewTick> &ticks) {
    QStringList names;
    for (const ViewTick &tick : ticks) {
        const Member *member = MemberOf(pool, tick);
        names.append(member ? NameOf(*member) : tick.Name);
    }
    return names;
}

template <typename Member>
std::vector<const Member *> MembersOf(const Pool<Member> &pool, const std::vector<ViewTick> &ticks) {
    std::vector<const Member *> members;
    for (const ViewTick &tick : ticks)
        if (const Member *member = MemberOf(pool, tick)) members.push_back(member);
    return members;
}

template <typename Member>
bool IsAmong(const std::vector<const Member *> &members, const Member &member) {
    return std::ranges::find(members, &member) != members.end();
}

template <typename Member>
void Tick(Pool<Member> &pool, const std::vector<ViewTick> &ticks, QStringList &missing) {
    const auto members = MembersOf(pool, ticks);
    for (Member &member : pool) member.Selected = IsAmong(members, member);
    for (const ViewTick &tick : ticks)
        if (!MemberOf(pool, tick)) missing.append(tick.Name);
}

template <typename Member>
bool IsJustTicked(const Pool<Member> &pool, const std::vector<ViewTick> &ticks) {
    const auto members = MembersOf(pool, ticks);
    for (const Member &member : pool)
        if (member.Selected != IsAmong(members, member)) return false;
    return true;
}

template <typename Views>
auto Find(Views &views, const QString &name) {
    return std::ranges::find_if(views, [name = name.trimmed()](const FilterView &view) {
        return view.Name.compare(name, Qt::CaseInsensitive) == 0;
    });
}

} // namespace

const FilterView *FindView(const clsfrmMain &settings, const QString &name) {
    const auto view = Find(settings.Views, name);
    return view == settings.Views.end() ? nullptr : &*view;
}

void KeepView(clsfrmMain &settings, const QString &name) {
    FilterView view{name.trimmed(), TicksOf(settings.Levels()), TicksOf(settings.Groups())};
    if (view.Name.isEmpty()) return;
    if (const auto former = Find(settings.Views, name); former != settings.Views.end())
        *former = std::move(view);
    else
        settings.Views.push_back(std::move(view));
    settings.Dirty = true;
}

bool RenameView(clsfrmMain &settings, const QString &name, const QString &newName) {
    const QString wanted = newName.trimmed();
    const auto view = Find(settings.Views, name), taken = Find(settings.Views, wanted);
    const bool isFree = taken == settings.Views.end() || taken == view;
    if (view == settings.Views.end() || wanted.isEmpty() || !isFree) return false;
    if (view->Name == wanted) return true;
    view->Name = wanted;
    settings.Dirty = true;
    return true;
}

void DeleteView(clsfrmMain &settings, const QString &name) {
    const auto view = Find(settings.Views, name);
    if (view == settings.Views.end()) return;
    settings.Views.erase(view);
    settings.Dirty = true;
}

QStringList TickView(clsfrmMain &settings, const FilterView &view) {
    QStringList missing;
    Tick(settings.Levels(), view.Levels, missing);
    Tick(settings.Groups(), view.Groups, missing);
    return missing;
}

bool IsTicked(clsfrmMain &settings, const FilterView &view) {
    return IsJustTicked(settings.Levels(), view.Levels) && IsJustTicked(settings.Groups(), view.Groups);
}

QStringList LevelNames(clsfrmMain &settings, const FilterView &view) {
    return NamesOf(settings.Levels(), view.Levels);
}

QStringList GroupNames(clsfrmMain &settings, const FilterView &view) {
    return NamesOf(settings.Groups(), view.Groups);
}

} // namespace document
