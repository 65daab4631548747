#include "mainwindow/window/WindowStatus.h"

#include "diagram/view/SurfaceView.h"
#include "document/UnsavedWork.h"
#include "mainwindow/controls/cStatusBar.h"
#include "mainwindow/edits/Selection.h"
#include "mainwindow/frmMain.h"
#include "settings/Settings.h"

#include <utility>

namespace mainwindow {

void WindowStatus::TellInPassing(const QString &text) {
    hint_ = text;
    window_.DoStatus(text);
}

void WindowStatus::DropHint() {
    if (!hint_.isEmpty() && bar_.Doing() == hint_) window_.DoStatus(QString());
    hint_.clear();
}

void WindowStatus::TellHintOfView(const QString &text, bool yields) {
    if (!text.isEmpty())
        TellInPassing(text);
    else if (!hintOfView_.isEmpty() && bar_.Doing() == hintOfView_)
        window_.DoStatus(QString());
    hintOfView_ = text;
    yields_ = yields;
}

void WindowStatus::OfferHintOfView(const QString &text) {
    const QString doing = bar_.Doing();
    if (text != doing && (doing.isEmpty() || (yields_ && doing == hintOfView_))) TellHintOfView(text, true);
}

void WindowStatus::TellNotYet(const QString &what) {
    TellInPassing(settings::ReplaceTerms(frmMain::tr("%1 is not there yet.").arg(what)));
}

void WindowStatus::HiddenMayDiffer() {
    hiddenMayDiffer_ = true;
    window_.ScheduleUpdate();
}

void WindowStatus::Update() {
    bar_.SetSelection(SelectionText(window_.CurrentSurface()));
    bar_.SetZoom(window_.CurrentView().ShownZoom());
    ShowWhetherSaved();
}

void WindowStatus::ShowHidden(int nodes) {
    hiddenMayDiffer_ = false;
    const QString counted = CountedText(std::size_t(nodes), settings::Terms().NODE);
    bar_.SetHidden(counted.isEmpty() ? counted : frmMain::tr("%1 hidden").arg(counted));
}

void WindowStatus::ShowWhetherSaved() {
    const bool unsaved = document::MustAskBeforeLosing(window_);
    if (std::exchange(unsaved_, unsaved) == unsaved) return;
    bar_.SetUnsaved(unsaved);
    Q_EMIT UnsavedWorkChanged(unsaved);
}

} // namespace mainwindow
