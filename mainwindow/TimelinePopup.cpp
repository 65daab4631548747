#include "mainwindow/TimelinePopup.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/ActionGroup.h"
#include "mainwindow/Commands.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/TimelineMenu.h"
#include "timeline/Arrange.h"
#include "timeline/TimelineNodes.h"

#include <algorithm>
#include <QAction>

namespace mainwindow {

TimelinePopup::TimelinePopup(frmMain &window) : window_(window), menu_(new TimelineMenu(&window)) {
    QObject::connect(menu_, &TimelineMenu::Click, &window, &frmMain::SMXP_Click);
}

// The last month in sight can't be hidden.
void TimelinePopup::Show(diagram::Node &month, const diagram::SurfaceView &view, const QPointF &twips) {
    const std::vector<diagram::Node *> months = timeline::LocateTimelineNodes(month.Owner());
    const auto visible =
        std::ranges::count_if(months, [](const diagram::Node *each) { return !each->Hidden(); });
    menu_->Item(QStringLiteral("mnuTemplateNodeHide"))->setEnabled(visible > 1);
    month_ = {month.Owner().Index(), month.Id()};
    menu_->popup(view.viewport()->mapToGlobal(view.FromSurface(twips).toPoint()));
}

diagram::Node *TimelinePopup::Month() const {
    const auto &[index, id] = month_;
    return window_.AddFlow1().Exists(index) ? window_.AddFlow1()[index].FindNode(id) : nullptr;
}

void TimelinePopup::Hide() {
    diagram::Surface &surface = window_.CurrentSurface();
    const ActionGroup step(surface);
    if (diagram::Node *month = Month()) timeline::HideMonth(*month);
    surface.UnselectAll();
    month_ = {-1, diagram::kNoItem};
    window_.ClickTab();
    timeline::ArrangeTimeLineNodes(window_, surface, timeline::kStoredArrangement);
}

void TimelinePopup::UnHide() {
    const ActionGroup step(window_.CurrentSurface());
    timeline::DoUnHideTimelineNodes(window_, window_.CurrentSurface());
    window_.ClickTab();
}

void TimelinePopup::OpenSetup() { window_.SmartMenuXP1_Click(QStringLiteral("mnuViewTimelineSetup")); }

void TimelinePopup::Click(const QString &key) {
    struct EntryRow {
        const char *key;
        void (TimelinePopup::*routine)();
    };
    static constexpr EntryRow kEntries[] = {
        {"mnuTemplateNodeHide", &TimelinePopup::Hide},
        {"mnuTemplateNodeUnHide", &TimelinePopup::UnHide},
        {"mnuTemplateNodeOpen", &TimelinePopup::OpenSetup},
    };
    const auto *entry =
        std::ranges::find_if(kEntries, [&](const EntryRow &row) { return key == QLatin1String(row.key); });
    if (entry != std::end(kEntries))
        (this->*entry->routine)();
    else
        ShowUnknownKey(window_.Desktop(), key);
}

} // namespace mainwindow
