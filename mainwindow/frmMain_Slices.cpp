// The slices: surfaces, their views and tabs.
#include "mainwindow/frmMain.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/clsLockWindowUpdate.h"
#include "mainwindow/EditSlices.h"
#include "mainwindow/Finder.h"
#include "mainwindow/frmLayers.h"
#include "mainwindow/LostMapOffers.h"
#include "mainwindow/SliceTabs.h"
#include "mainwindow/SliceViews.h"
#include "mainwindow/SmartMenu.h"
#include "mainwindow/WindowJournal.h"
#include "timeline/TimelineNodes.h"

#include <algorithm>
#include <QMenu>

namespace mainwindow {

int frmMain::CurrentIndex() const {
    const std::vector<int> slots = AddFlow1_.Indices();
    const int tab = tabStrip_.TheTab();
    return tab >= 0 && tab < int(slots.size()) ? slots[std::size_t(tab)] : -1;
}

diagram::Surface &frmMain::CurrentSurface() { return AddFlow1_[CurrentIndex()]; }

diagram::SurfaceView &frmMain::ViewOf(int index) const { return views_->At(index); }
diagram::SurfaceView &frmMain::CurrentView() { return ViewOf(CurrentSurface().Index()); }

void frmMain::SurfaceLoaded(diagram::Surface &surface) {
    surface.SetShowsBothTexts(DisplayPressed());
    views_->Add(surface);
    if (journal_) journal_->Watch(surface);
    picRHS_Resize();
}

void frmMain::SurfaceUnloading(diagram::Surface &surface) {
    hiddenMayDiffer_ = true;
    if (journal_) journal_->Unwatch(surface);
    views_->Remove(surface);
}

void frmMain::SSTab_Click() {
    const int current = CurrentIndex();
    if (!views_->Has(current)) return; // a tab whose surface is still to be loaded
    views_->Select(current, tabStrip_.Caption());
    ShowTimelineTick();
    ScheduleUpdate();
}

void frmMain::ShowTimelineTick() {
    const std::vector<diagram::Node *> months = timeline::LocateTimelineNodes(CurrentSurface());
    SetMenuValue(QStringLiteral("mnuViewTimeline"),
                 std::any_of(months.begin(), months.end(),
                             [](const diagram::Node *month) { return !month->Hidden(); }));
}

// From top to bottom: maps on offer, the surface, the bar that finds, the tabs.
void frmMain::picRHS_Resize() {
    QRect inner = picRHS_->rect();
    tabStrip_.Move(0, 0, inner.width(), inner.height());
    inner.setHeight(inner.height() - tabStrip_.TabHeight());
    inner.setHeight(inner.height() - finder_->TakeBottom(inner));
    inner.setTop(inner.top() + lostMaps_->TakeTop(inner));
    views_->Place(inner.height() > 0 ? inner : QRect(inner.topLeft(), QSize(inner.width(), 0)));
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
