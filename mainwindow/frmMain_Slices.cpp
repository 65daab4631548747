// The slices: surfaces, their views and tabs.
#include "mainwindow/frmMain.h"

#include "app/settings/Settings.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/clsLockWindowUpdate.h"
#include "mainwindow/EditSlices.h"
#include "mainwindow/FindBar.h"
#include "mainwindow/frmLayers.h"
#include "mainwindow/HintText.h"
#include "mainwindow/ItemDescription.h"
#include "mainwindow/RecoveryBar.h"
#include "mainwindow/SliceTabs.h"
#include "mainwindow/SmartMenu.h"
#include "mainwindow/SurfaceSink.h"
#include "mainwindow/WindowJournal.h"
#include "timeline/DaysOfStrip.h"
#include "timeline/TimelineNodes.h"

#include <algorithm>
#include <QApplication>
#include <QMenu>

namespace mainwindow {

int frmMain::CurrentIndex() const {
    const std::vector<int> slots = AddFlow1_.Indices();
    const int tab = tabStrip_.TheTab();
    return tab >= 0 && tab < int(slots.size()) ? slots[std::size_t(tab)] : -1;
}

diagram::Surface &frmMain::CurrentSurface() { return AddFlow1_[CurrentIndex()]; }

diagram::SurfaceView &frmMain::CurrentView() { return *views_.at(CurrentSurface().Index()); }

void frmMain::SurfaceLoaded(diagram::Surface &surface) {
    surface.SetEvents(sink_.get());
    surface.AddObserver(*sink_);
    surface.SetShowsBothTexts(DisplayPressed());
    auto view = std::make_unique<diagram::SurfaceView>(surface, picRHS_);
    view->setObjectName(QStringLiteral("AddFlow1(%1)").arg(surface.Index()));
    view->setFrameShape(QFrame::NoFrame);
    connect(view.get(), &diagram::SurfaceView::ViewChanged, this, &frmMain::ScheduleUpdate);
    connect(view.get(), &diagram::SurfaceView::HintShown, this,
            [this](diagram::Hint hint) { TellHintOfView(HintText(hint)); });
    view->SetWords({settings::Terms().NODE, settings::Terms().LINK});
    view->SetDescriber([this](const diagram::Item &item) { return ItemDescription(item, clsSettings()); });
    view->SetDays(*days_);
    view->lower(); // what is on top stays so until its tab is selected
    views_[surface.Index()] = std::move(view);
    if (journal_) journal_->Watch(surface);
    picRHS_Resize();
}

void frmMain::SurfaceUnloading(diagram::Surface &surface) {
    hiddenMayDiffer_ = true;
    // The focus of a widget that goes would land just anywhere.
    if (ViewOf(surface.Index()).hasFocus() && surface.Index() > 0) ViewOf(0).setFocus();
    if (journal_) journal_->Unwatch(surface);
    views_.erase(surface.Index());
    surface.RemoveObserver(*sink_);
    surface.SetEvents(nullptr);
}

void frmMain::SSTab_Click() {
    const int current = CurrentIndex();
    if (!views_.contains(current)) return; // a tab whose surface is still to be loaded
    const bool onSurface = qobject_cast<diagram::SurfaceView *>(QApplication::focusWidget()) != nullptr;
    for (const auto &[index, view] : views_)
        view->setFocusPolicy(index == current ? Qt::StrongFocus : Qt::NoFocus);
    diagram::SurfaceView &view = *views_.at(current);
    view.show();
    view.raise();
    view.setAccessibleName(tabStrip_.Caption());
    ShowTimelineTick();
    if (onSurface) view.setFocus();
    ScheduleUpdate();
}

void frmMain::ShowTimelineTick() {
    const std::vector<diagram::Node *> months = timeline::LocateTimelineNodes(CurrentSurface());
    SetMenuValue(QStringLiteral("mnuViewTimeline"),
                 std::any_of(months.begin(), months.end(),
                             [](const diagram::Node *month) { return !month->Hidden(); }));
}

void frmMain::picRHS_Resize() {
    const QRect inner = picRHS_->rect();
    tabStrip_.Move(0, 0, inner.width(), inner.height());
    const int tabs = tabStrip_.TabHeight();
    const int bar = findBar_->isHidden() ? 0 : findBar_->sizeHint().height();
    findBar_->setGeometry(0, inner.height() - tabs - bar, inner.width(), bar);
    const int offer = PlaceRecoveryBar(inner.width());
    const int height = qMax(0, inner.height() - tabs - bar - offer);
    for (const auto &[index, view] : views_) {
        view->setGeometry(0, offer, inner.width(), height);
        view->show();
    }
}

void frmMain::EditSlices(const std::function<void(frmLayers &)> &edit) {
    frmLayers form(desktop_, SlicesOf(*this), tabStrip_.TheTab(), this);
    SetMousePointer(document::pointer::kNormal); // the form and what it asks are the user's turn
    edit(form);
    if (form.result() != QDialog::Accepted) return;
    const clsLockWindowUpdate lock(*this);
    RebuildSlices(*this, form.cLayers());
}

void frmMain::DoInsertSlice() {
    EditSlices([](frmLayers &form) { form.cmdNew_Click(), form.OkIfEdited(); });
}

void frmMain::DoRenameSlice() {
    EditSlices([](frmLayers &form) { form.cmdEdit_Click(), form.OkIfEdited(); });
}

void frmMain::DoDeleteSlice() {
    EditSlices([](frmLayers &form) { form.cmdDelete_Click(), form.OkIfEdited(); });
}

void frmMain::DoEditSlices() {
    EditSlices([this](frmLayers &form) { document::Show(*this, form); });
}

void frmMain::MoveSlice(int from, int to) {
    tabStrip_.SetTheTab(from);
    EditSlices([&](frmLayers &form) {
        for (int at = from; at < to; ++at) form.cmdDown_Click();
        for (int at = from; at > to; --at) form.cmdUp_Click();
        form.OkIfEdited();
    });
    tabStrip_.SetTheTab(to);
}

void frmMain::ShowSliceMenu(int tab, const QPoint &at) {
    tabStrip_.SetTheTab(tab);
    if (QMenu *menu = SmartMenuXP1a_->Menu(QStringLiteral("mnuEditSlices"))) menu->popup(at);
}

} // namespace mainwindow
