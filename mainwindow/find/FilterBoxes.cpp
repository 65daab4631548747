#include "mainwindow/find/FilterBoxes.h"

#include "diagram/model/Actions.h"
#include "diagram/model/Sights.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/controls/TickBox.h"
#include "mainwindow/edits/Selection.h"
#include "mainwindow/find/ViewButton.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/menus/Toolbar.h"
#include "mainwindow/slices/SliceViews.h"
#include "timeline/Arrange.h"
#include "timeline/TimelineNodes.h"

#include <QHBoxLayout>
#include <QLabel>

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

// Toggles the row's tick once for each member of that name, and gives the member the tick that results.
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

template <typename Pool>
void TickAll(TickBox &combo, Pool &pool, bool ticked) {
    for (auto &member : pool) member.Selected = ticked;
    LoadCombo(combo, pool);
}

int HiddenOn(const diagram::Surface &surface) {
    int hidden = 0;
    for (const diagram::Node &node : surface.Nodes()) hidden += node.Hidden() && node.Selectable();
    return hidden;
}

// Label and box in one widget, so that they stay together where a narrow window moves them out of the
// toolbar.
QWidget *Labelled(QWidget &box, const QString &label) {
    auto *both = new QWidget(box.parentWidget());
    auto *row = new QHBoxLayout(both);
    row->setContentsMargins(6, 0, 0, 0);
    auto *text = new QLabel(label, both);
    text->setBuddy(&box);
    row->addWidget(text);
    row->addWidget(&box);
    return both;
}

} // namespace

FilterBoxes::FilterBoxes(frmMain &window, Toolbar &bar)
    : window_(window),
      groups_(new TickBox(QStringLiteral("ssDBGroups"), frmMain::tr("Groups that are shown"), &bar)),
      levels_(new TickBox(QStringLiteral("ssDBLevels"), frmMain::tr("Levels that are shown"), &bar)) {
    bar.addWidget(Labelled(*groups_, frmMain::tr("Groups")));
    bar.addWidget(Labelled(*levels_, frmMain::tr("Levels")));
    bar.addWidget(new ViewButton(window, &bar));
    QObject::connect(groups_, &TickBox::Click, &window, &frmMain::ssDBGroups_Click);
    QObject::connect(groups_, &TickBox::ClickAll, &window, [this](bool ticked) {
        support::Report("frmMain", "ssDBGroups_Click", [&] { TickAllGroups(ticked); });
    });
    QObject::connect(levels_, &TickBox::ClickAll, &window, [this](bool ticked) {
        support::Report("frmMain", "ssDBLevels_Click", [&] { TickAllLevels(ticked); });
    });
    QObject::connect(groups_, &TickBox::CloseUp, &window, &frmMain::ssDBGroups_CloseUp);
    QObject::connect(levels_, &TickBox::Click, &window, &frmMain::ssDBLevels_Click);
    QObject::connect(levels_, &TickBox::CloseUp, &window, &frmMain::ssDBLevels_CloseUp);
}

// An open list closes while the window is being destroyed, and must not reach it then.
FilterBoxes::~FilterBoxes() {
    for (TickBox *box : {groups_, levels_}) box->disconnect(&window_);
}

void FilterBoxes::LoadGroups() { LoadCombo(*groups_, window_.clsSettings().Groups()); }
void FilterBoxes::LoadLevels() { LoadCombo(*levels_, window_.clsSettings().Levels()); }

void FilterBoxes::TickGroup(int row) {
    Tick(*groups_, window_.clsSettings().Groups(), row);
    Preview();
}

void FilterBoxes::TickLevel(int row) {
    Tick(*levels_, window_.clsSettings().Levels(), row);
    Preview();
}

void FilterBoxes::TickAllGroups(bool ticked) {
    TickAll(*groups_, window_.clsSettings().Groups(), ticked);
    Preview();
}

void FilterBoxes::TickAllLevels(bool ticked) {
    TickAll(*levels_, window_.clsSettings().Levels(), ticked);
    Preview();
}

document::FilterKeys FilterBoxes::Keys() const {
    return document::KeysForFilter(groups_->Text(), levels_->Text(), window_.clsSettings().Groups(),
                                   window_.clsSettings().Levels());
}

void FilterBoxes::Preview() {
    if ((!groups_->IsOpen() && !levels_->IsOpen()) || window_.CurrentIndex() < 0) return;
    diagram::Surface &surface = window_.CurrentSurface();
    diagram::Sights sights = document::PreviewFilter(surface, Keys());
    timeline::PreviewTimelineNodes(surface, window_.MenuValue(QStringLiteral("mnuViewTimeline")), sights);
    window_.CurrentView().SetSights(std::move(sights));
}

void FilterBoxes::EndPreview() {
    for (diagram::SurfaceView *view : window_.Views().All()) view->SetSights({});
}

void FilterBoxes::Apply() {
    EndPreview();
    const document::FilterKeys keys = Keys();
    for (const int index : window_.AddFlow1().Indices()) {
        diagram::Surface &surface = window_.AddFlow1()[index];
        const diagram::Uncounted ticks(surface.Actions());
        const bool hidesTimeline = timeline::IsTimelineHidden(surface);
        document::ApplyFilter(surface, keys);
        if (hidesTimeline) timeline::ShowHideTimelineNodes(surface, false); // its links to their days too
        UnselectHiddenNodes(surface); // what nobody sees must not be deleted by a key
        UnselectHiddenLinks(surface);
    }
    ShowHideTimelineNodes();
}

// Shows or hides the months of the current slice as the menu entry is checked.
void FilterBoxes::ShowHideTimelineNodes() {
    diagram::Surface &surface = window_.CurrentSurface();
    if (timeline::LocateTimelineNodes(surface).empty()) return;
    timeline::ShowTimeline(window_, surface, window_.MenuValue(QStringLiteral("mnuViewTimeline")));
}

int FilterBoxes::HiddenNodes() const {
    int hidden = 0;
    for (const int index : window_.AddFlow1().Indices()) hidden += HiddenOn(window_.AddFlow1()[index]);
    return hidden;
}

} // namespace mainwindow
