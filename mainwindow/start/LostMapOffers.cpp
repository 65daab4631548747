#include "mainwindow/start/LostMapOffers.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/start/RecoveryBar.h"
#include "mainwindow/start/StartOffer.h"
#include "mainwindow/start/WindowJournal.h"
#include "mainwindow/window/WindowStatus.h"
#include "recovery/Restore.h"
#include "settings/Settings.h"
#include "support/Error.h"

#include <algorithm>

namespace mainwindow {

namespace {

bool MayDiscard(support::Desktop &desktop, const recovery::LostMap &lost) {
    return desktop.messageBoxes.Show(
               frmMain::tr(
                   "Discard the changes of %1 that were not saved?\r\n\r\nThey can't be brought back.")
                   .arg(lost.title),
               support::Buttons::YesNo, support::Icon::Question, settings::Terms().TITLE,
               support::EnterPresses::No) == support::Answer::Yes;
}

} // namespace

void LostMapOffers::Add(std::vector<recovery::LostMap> lost) {
    if (lost.empty()) return;
    if (!bar_) {
        bar_ = new RecoveryBar(place_);
        QObject::connect(bar_, &RecoveryBar::Answered, bar_,
                         [this](int row, OfferAnswer answer) { Answer(row, answer); });
        QObject::connect(bar_, &RecoveryBar::Left, bar_, [this] { window_.CurrentView().setFocus(); });
    }
    bar_->Add(std::move(lost));
    window_.picRHS_Resize();
}

int LostMapOffers::TakeTop(const QRect &rectangle) {
    if (!bar_) return 0;
    const int height = bar_->WantedHeight();
    bar_->setGeometry(rectangle.left(), rectangle.top(), rectangle.width(), height);
    bar_->setVisible(height > 0);
    return height;
}

void LostMapOffers::Answer(int row, OfferAnswer answer) {
    support::Report("frmMain", "AnswerOffer", [&] {
        if (answer == OfferAnswer::Discard && !MayDiscard(window_.Desktop(), bar_->Map(row))) return;
        recovery::LostMap lost = bar_->Take(row);
        window_.picRHS_Resize();
        if (bar_->Count() > 0)
            bar_->TakeFocus();
        else
            window_.CurrentView().setFocus();
        if (answer == OfferAnswer::Restore)
            Restore(std::move(lost));
        else if (answer == OfferAnswer::Discard)
            recovery::RemoveFolder(std::move(lost.folder));
    });
}

frmMain *LostMapOffers::Restore(recovery::LostMap lost) {
    return support::PassOn("RestoreLostMap", [&]() -> frmMain * {
        recovery::KeptMap map = recovery::ReadLostMap(lost);
        frmMain *shown = PlaceFor(map.frame.path);
        std::unique_ptr<frmMain> made;
        if (!shown) made = std::make_unique<frmMain>(window_.Desktop());
        frmMain &target = shown ? *shown : *made;
        const bool damaged = map.damaged;
        recovery::Restore(target, std::move(map), lost.folder.path);
        static_cast<void>(made.release()); // deletes itself once it is shown and closed
        target.ShowWindow();
        if (target.Journal()) target.Journal()->Writer().Supersede(std::move(lost.folder));
        target.Status().TellInPassing(
            damaged ? frmMain::tr("%1 was restored as far as it could be read. It is not saved yet.")
                          .arg(lost.title)
                    : frmMain::tr("%1 was restored. It is not saved yet.").arg(lost.title));
        return &target;
    });
}

// The window in which the map may be shown without covering any work: one that shows the map's file as it is,
// or the window of the bar while it is empty. Null for none.
frmMain *LostMapOffers::PlaceFor(const QString &path) {
    for (frmMain *form : frmMain::Forms())
        if (!path.isEmpty() && form->clsSettings().Database() == path && !form->HasUnsavedWork()) return form;
    return ShowsNothing(window_) ? &window_ : nullptr;
}

} // namespace mainwindow
