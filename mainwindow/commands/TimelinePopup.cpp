#include "mainwindow/commands/TimelinePopup.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/commands/FoldCommands.h"
#include "mainwindow/commands/TimelineMenu.h"
#include "mainwindow/edits/HandlerStep.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/menus/Commands.h"
#include "timeline/Arrange.h"
#include "timeline/Folding.h"
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
    ShowFolds(month, std::ranges::any_of(months, [](const diagram::Node *each) {
                  return timeline::FoldOf(*each).has_value();
              }));
    month_ = {month.Owner().Index(), month.Id()};
    const QRect seen = view.viewport()->rect(); // the month itself may be out of sight
    const QPoint at = view.FromSurface(twips).toPoint();
    menu_->popup(view.viewport()->mapToGlobal(QPoint(std::clamp(at.x(), seen.left(), seen.right()),
                                                     std::clamp(at.y(), seen.top(), seen.bottom()))));
}

// A fold is unfolded as a whole.
void TimelinePopup::ShowFolds(const diagram::Node &month, bool anyFold) {
    const auto fold = timeline::FoldOf(month);
    menu_->Item(QStringLiteral("mnuTemplateNodeFold"))
        ->setText(fold ? frmMain::tr("Unfold") : frmMain::tr("Fold"));
    menu_->Item(QStringLiteral("mnuTemplateNodeFoldQuarter"))
        ->setEnabled(!fold || fold->piece < diagram::StripPiece::Quarter);
    menu_->Item(QStringLiteral("mnuTemplateNodeFoldYear"))
        ->setEnabled(!fold || fold->piece < diagram::StripPiece::Year);
    menu_->Item(QStringLiteral("mnuTemplateNodeUnfoldAll"))->setEnabled(anyFold);
}

void TimelinePopup::Fold(diagram::StripPiece piece) {
    if (const diagram::Node *month = Month()) ToggleFold(window_, *month, piece);
}
void TimelinePopup::FoldMonth() { Fold(diagram::StripPiece::Month); }
void TimelinePopup::FoldQuarter() { Fold(diagram::StripPiece::Quarter); }
void TimelinePopup::FoldYear() { Fold(diagram::StripPiece::Year); }
void TimelinePopup::UnfoldAll() { keyUnfoldAll(window_); }

diagram::Node *TimelinePopup::Month() const {
    const auto &[index, id] = month_;
    return window_.AddFlow1().Exists(index) ? window_.AddFlow1()[index].FindNode(id) : nullptr;
}

void TimelinePopup::Hide() {
    diagram::Surface &surface = window_.CurrentSurface();
    const HandlerStep step(surface);
    if (diagram::Node *month = Month()) timeline::HideMonth(*month);
    surface.UnselectAll();
    month_ = {-1, diagram::kNoItem};
    window_.ClickTab();
    timeline::ArrangeTimeLineNodes(window_, surface, timeline::kStoredArrangement);
}

void TimelinePopup::UnHide() {
    const HandlerStep step(window_.CurrentSurface());
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
        {"mnuTemplateNodeFold", &TimelinePopup::FoldMonth},
        {"mnuTemplateNodeFoldQuarter", &TimelinePopup::FoldQuarter},
        {"mnuTemplateNodeFoldYear", &TimelinePopup::FoldYear},
        {"mnuTemplateNodeUnfoldAll", &TimelinePopup::UnfoldAll},
    };
    const auto *entry =
        std::ranges::find_if(kEntries, [&](const EntryRow &row) { return key == QLatin1String(row.key); });
    if (entry != std::end(kEntries))
        (this->*entry->routine)();
    else
        ShowUnknownKey(window_.Desktop(), key);
}

} // namespace mainwindow
