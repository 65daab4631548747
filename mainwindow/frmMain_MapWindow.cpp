// What the document asks of its window.
#include "mainwindow/frmMain.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/controls/cProgressOnStatusBar.h"
#include "mainwindow/controls/cStatusBar.h"
#include "mainwindow/menus/Toolbar.h"
#include "mainwindow/slices/SliceViews.h"
#include "mainwindow/WindowParts.h"
#include "timeline/TimelineNodes.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QSplitter>

namespace mainwindow {

void frmMain::DoStatus(const QString &text) {
    parts_->staMain->SetDoing(text);
    if (isVisible()) parts_->staMain->repaint();
}

void frmMain::SetProgress(int percent) { parts_->prg1->Show(qBound(0, percent, 100)); }

void frmMain::SetMousePointer(int pointer) {
    mousePointer_ = pointer;
    std::vector<QWidget *> widgets{this};
    for (diagram::SurfaceView *view : views_->All()) widgets.push_back(view->viewport());
    for (QWidget *widget : widgets) {
        if (pointer == document::pointer::kHourglass)
            widget->setCursor(Qt::WaitCursor);
        else
            widget->unsetCursor();
    }
}

void frmMain::SetWindowCaption(const QString &caption) {
    setWindowTitle(caption);
    ScheduleUpdate();
}

// Without input: a key pressed during a load must not reach a map that is half loaded.
void frmMain::DoEvents() { LetEventsRun(QEventLoop::ExcludeUserInputEvents); }

void frmMain::LetEventsRun(QEventLoop::ProcessEventsFlags flags) {
    const QScopedValueRollback<bool> letting(lettingEventsRun_, true);
    QCoreApplication::processEvents(flags);
}

void frmMain::DoResize() {
    Form_Resize();
    picRHS_Resize();
}

void frmMain::ClickTab() { SSTab_Click(); }

void frmMain::RefreshMainControls() {
    for (QWidget *control : std::initializer_list<QWidget *>{menuBar(), parts_->tlbMain, parts_->tlbFormat,
                                                             parts_->tlbView, parts_->SSSplitter1})
        control->update();
    ScheduleUpdate();
}

void frmMain::DrawMenuBar() { menuBar()->update(); }

std::optional<bool> frmMain::ShowsTimeline() {
    if (timeline::LocateTimelineNodes(CurrentSurface()).empty()) return std::nullopt;
    return MenuValue(QStringLiteral("mnuViewTimeline"));
}

bool frmMain::DisplayPressed() const {
    const QAction *button = parts_->tlbFormat->Button(QStringLiteral("DISPLAY"));
    return button && button->isChecked();
}

void frmMain::ClickFormatButton(const QString &key) {
    if (QAction *button = parts_->tlbFormat->Button(key); button && button->isCheckable()) button->toggle();
    tlbFormat_ButtonClick(key);
}

} // namespace mainwindow
