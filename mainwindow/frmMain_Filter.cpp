// The two lists of what is shown, by group and by level.
#include "mainwindow/frmMain.h"

#include "app/settings/Settings.h"
#include "document/Tags.h"
#include "mainwindow/cStatusBar.h"
#include "mainwindow/Filter.h"
#include "mainwindow/Selection.h"
#include "mainwindow/TickBox.h"
#include "support/clsGUID.h"
#include "timeline/TimelineNodes.h"

#include <utility>

namespace mainwindow {

namespace {

const QString &NameOf(const document::cGroup &group) { return group.GroupName; }
const QString &NameOf(const document::cLevel &level) { return level.LevelName; }

template <typename Pool>
QString TickedNames(const Pool &pool) {
    QStringList names;
    for (const auto &member : pool)
        if (member.Selected) names << NameOf(member);
    return names.join(u',');
}

template <typename Pool>
void LoadCombo(TickBox &combo, const Pool &pool) {
    std::vector<TickRow> rows;
    for (const auto &member : pool) rows.push_back({member.Selected, NameOf(member), member.Key});
    combo.SetRows(rows);
    combo.SetText(TickedNames(pool));
}

// Every member of that name takes part, each turning the row's tick round.
template <typename Pool>
void Tick(TickBox &combo, Pool &pool, int row) {
    const QString name = combo.Row(row).name;
    for (auto &member : pool) {
        if (NameOf(member) != name) continue;
        combo.SetTicked(row, !combo.Row(row).ticked);
        member.Selected = combo.Row(row).ticked;
    }
    LoadCombo(combo, pool);
}

// What the user drew and the filter hides.
int HiddenNodes(const diagram::Surface &surface) {
    int hidden = 0;
    for (const diagram::Node &node : surface.Nodes()) hidden += node.Hidden() && node.Selectable();
    return hidden;
}

} // namespace

void frmMain::LoadCombos() {
    LoadGroupCombo();
    LoadLevelCombo();
}

void frmMain::LoadGroupCombo() { LoadCombo(*ssDBGroups_, clsSettings_->Groups()); }
void frmMain::LoadLevelCombo() { LoadCombo(*ssDBLevels_, clsSettings_->Levels()); }

void frmMain::ssDBGroups_Click(int row) {
    support::Report("frmMain", "ssDBGroups_Click", [&] { Tick(*ssDBGroups_, clsSettings_->Groups(), row); });
}

void frmMain::ssDBLevels_Click(int row) {
    support::Report("frmMain", "ssDBLevels_Click", [&] { Tick(*ssDBLevels_, clsSettings_->Levels(), row); });
}

void frmMain::ssDBGroups_CloseUp() {
    support::Report("frmMain", "ssDBGroups_CloseUp", [&] {
        SetMousePointer(document::pointer::kHourglass);
        const FilterKeys keys = KeysForFilter(ssDBGroups_->Text(), ssDBLevels_->Text(),
                                              clsSettings_->Groups(), clsSettings_->Levels());
        for (const int index : AddFlow1_.Indices()) {
            const diagram::Uncounted ticks(AddFlow1_[index]);
            ApplyFilter(AddFlow1_[index], keys);
            UnselectHiddenNodes(AddFlow1_[index]); // what nobody sees must not be deleted by a key
            UnselectHiddenLinks(AddFlow1_[index]);
        }
        ShowHideTimelineNodes();
        SetMousePointer(document::pointer::kNormal);
        ScheduleUpdate();
    });
}

void frmMain::ssDBLevels_CloseUp() { ssDBGroups_CloseUp(); }

// The months of the current slice, as the menu says.
void frmMain::ShowHideTimelineNodes() {
    diagram::Surface &surface = CurrentSurface();
    if (timeline::LocateTimelineNodes(surface).empty()) return;
    timeline_.ShowHideTimelineNodes(surface, MenuValue(QStringLiteral("mnuViewTimeline")));
}

void frmMain::HiddenMayDiffer() {
    hiddenMayDiffer_ = true;
    ScheduleUpdate();
}

// Every node is looked at, so only when there is reason to.
void frmMain::ShowHiddenCount() {
    if (!std::exchange(hiddenMayDiffer_, false)) return;
    ShowTimelineTick();
    int hidden = 0;
    for (const int index : AddFlow1_.Indices()) hidden += HiddenNodes(AddFlow1_[index]);
    const QString nodes = CountedText(std::size_t(hidden), settings::Terms().NODE);
    staMain_->SetHidden(nodes.isEmpty() ? nodes : tr("%1 hidden").arg(nodes));
}

void frmMain::DoFixColors() {
    for (diagram::Node &node : CurrentSurface().Nodes()) {
        const QString key = document::GetTag(node, document::tags::kLevel);
        if (key.isEmpty()) continue;
        if (const document::cLevel *level = clsSettings_->Levels().NewEnum().Find(key))
            node.SetFillColor(level->Color);
    }
}

} // namespace mainwindow
