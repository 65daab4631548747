// The slices: surfaces, their views and tabs.
#include "mainwindow/frmMain.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/commands/TimelineCommands.h"
#include "mainwindow/find/Finder.h"
#include "mainwindow/forms/frmLayers.h"
#include "mainwindow/slices/Overview.h"
#include "mainwindow/slices/SliceEditor.h"
#include "mainwindow/slices/SliceTurns.h"
#include "mainwindow/slices/SliceViews.h"
#include "mainwindow/start/LostMapOffers.h"
#include "mainwindow/start/StartOffer.h"
#include "mainwindow/WindowParts.h"

namespace mainwindow {

int frmMain::CurrentIndex() const {
    const std::vector<int> slots = AddFlow1_.Indices();
    const int tab = tabStrip_.TheTab();
    return tab >= 0 && tab < int(slots.size()) ? slots[std::size_t(tab)] : -1;
}

diagram::Surface &frmMain::CurrentSurface() { return AddFlow1_[CurrentIndex()]; }

diagram::SurfaceView &frmMain::CurrentView() { return views_->At(CurrentSurface().Index()); }

void frmMain::SSTab_Click() {
    const int current = CurrentIndex();
    if (!views_->Has(current)) return; // a tab whose surface is still to be loaded
    views_->Select(current, tabStrip_.Caption());
    start_->Raise();
    overview_->Follow();
    turns_->Selected(tabStrip_.TheTab());
    ShowTimelineTick(*this);
    ScheduleUpdate();
}

// From top to bottom: the bar of lost maps, the surface, the find bar, the tabs.
void frmMain::picRHS_Resize() {
    QRect inner = parts_->picRHS->rect();
    tabStrip_.Move(0, 0, inner.width(), inner.height());
    inner.setHeight(inner.height() - tabStrip_.TabHeight());
    inner.setHeight(inner.height() - finder_->TakeBottom(inner));
    inner.setTop(inner.top() + lostMaps_->TakeTop(inner));
    if (inner.height() < 0) inner.setHeight(0);
    views_->Place(inner);
    start_->Place(inner);
    overview_->Update();
}

void frmMain::DoInsertSlice() {
    slices_->Edit([](frmLayers &form) {
        form.cmdNew_Click();
        form.OkIfEdited();
    });
}

void frmMain::DoRenameSlice() {
    slices_->Edit([](frmLayers &form) {
        form.cmdEdit_Click();
        form.OkIfEdited();
    });
}

void frmMain::DoDeleteSlice() {
    slices_->Edit([](frmLayers &form) {
        form.cmdDelete_Click();
        form.OkIfEdited();
    });
}

void frmMain::DoEditSlices() {
    slices_->Edit([this](frmLayers &form) { document::Show(*this, form); });
}

} // namespace mainwindow
