// The journal of the window, and the bar that offers what journals of former runs hold.
#include "mainwindow/frmMain.h"

#include "app/settings/Settings.h"
#include "diagram/view/SurfaceView.h"
#include "document/UnsavedWork.h"
#include "mainwindow/RecoveryBar.h"
#include "mainwindow/WindowJournal.h"
#include "recovery/Restore.h"
#include "support/Error.h"

#include <algorithm>

namespace mainwindow {

namespace {

bool AsksBeforeDiscarding(support::Desktop &desktop, const recovery::LostMap &lost) {
    return desktop.messageBoxes.Show(
               frmMain::tr(
                   "Discard the changes of %1 that were not saved?\r\n\r\nThey can't be brought back.")
                   .arg(lost.title),
               support::Buttons::YesNo, support::Icon::Question, settings::Terms().TITLE,
               support::EnterPresses::No) == support::Answer::Yes;
}

} // namespace

void frmMain::SetJournalsFolder(const QString &folder) { WindowJournal::SetFolder(folder); }

void frmMain::OfferLostMaps(std::vector<recovery::LostMap> lost) {
    if (lost.empty()) return;
    if (!recoveryBar_) {
        recoveryBar_ = new RecoveryBar(picRHS_);
        connect(recoveryBar_, &RecoveryBar::Answered, this, &frmMain::AnswerOffer);
        connect(recoveryBar_, &RecoveryBar::Left, this, [this] { CurrentView().setFocus(); });
    }
    recoveryBar_->Add(std::move(lost));
    picRHS_Resize();
}

int frmMain::PlaceRecoveryBar(int width) {
    const int height = recoveryBar_ ? recoveryBar_->WantedHeight() : 0;
    if (!recoveryBar_) return 0;
    recoveryBar_->setGeometry(0, 0, width, height);
    recoveryBar_->setVisible(height > 0);
    return height;
}

void frmMain::AnswerOffer(int row, OfferAnswer answer) {
    support::Report("frmMain", "AnswerOffer", [&] {
        if (answer == OfferAnswer::Discard && !AsksBeforeDiscarding(desktop_, recoveryBar_->Map(row))) return;
        recovery::LostMap lost = recoveryBar_->Take(row);
        picRHS_Resize();
        if (recoveryBar_->Count() > 0)
            recoveryBar_->TakeFocus();
        else
            CurrentView().setFocus();
        if (answer == OfferAnswer::Restore) RestoreLostMap(std::move(lost));
        if (answer == OfferAnswer::Discard) recovery::RemoveFolder(std::move(lost.folder));
    });
}

frmMain *frmMain::RestoreLostMap(recovery::LostMap lost) {
    return support::PassOn("RestoreLostMap", [&]() -> frmMain * {
        recovery::KeptMap map = recovery::ReadLostMap(lost);
        frmMain *shown = PlaceFor(map.frame.path);
        std::unique_ptr<frmMain> made;
        if (!shown) made = std::make_unique<frmMain>(desktop_);
        frmMain &target = shown ? *shown : *made;
        const bool damaged = map.damaged;
        recovery::Restore(target, std::move(map), lost.folder.path);
        made.release(); // shown, it belongs to itself
        target.ShowWindow();
        if (target.journal_) target.journal_->Writer().Supersede(std::move(lost.folder));
        target.TellInPassing(
            damaged ? tr("%1 was restored as far as it could be read. It is not saved yet.").arg(lost.title)
                    : tr("%1 was restored. It is not saved yet.").arg(lost.title));
        return &target;
    });
}

// The window in which the map may be shown without covering any work: one that shows the map's file as it is,
// or this one while it is empty. Null for none.
frmMain *frmMain::PlaceFor(const QString &path) {
    for (frmMain *form : Forms())
        if (!path.isEmpty() && form->clsSettings().Database() == path && !form->HasUnsavedWork()) return form;
    const bool isEmpty = clsSettings_->Database().isEmpty() && !HasUnsavedWork() && AddFlow1_.Count() == 1 &&
                         AddFlow1_[0].Nodes().Count() == 0;
    return isEmpty ? this : nullptr;
}

bool frmMain::HasUnsavedWork() { return document::MustAskBeforeLosing(*this); }

} // namespace mainwindow
