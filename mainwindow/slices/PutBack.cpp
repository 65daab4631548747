#include "mainwindow/slices/PutBack.h"

#include "mainwindow/controls/cStatusBar.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/window/WindowStatus.h"
#include "settings/Settings.h"

#include <QApplication>
#include <utility>

namespace mainwindow {

PutBack::PutBack(frmMain &window, cStatusBar &bar) : QObject(&bar), window_(window), bar_(bar) {
    connect(&bar_, &cStatusBar::PutBackClicked, this, &PutBack::Apply);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget *, const QWidget *now) {
        if (now && now->window() != &window_ && qobject_cast<const frmMain *>(now->window()) && IsOffered())
            Drop();
    });
}

void PutBack::Offer(dialogs::FormerLinks former) {
    if (!dialogs::HaveChanged(window_, former)) return;
    former_ = std::move(former);
    state_ = document::StateOf(window_);
    toldOfUndo_ = false;
    bar_.OfferPutBack(true);
    window_.ScheduleUpdate();
    Tell(former_.links.size() == 1 ? tr("The @LINK was changed. This is no step of undo.")
                                   : tr("The @LINKs were changed. This is no step of undo."));
}

bool PutBack::StopsUndo() {
    DropIfPast();
    if (!IsOffered()) return false;
    const bool hasOlder = window_.CurrentSurface().CanUndo();
    if (hasOlder && std::exchange(toldOfUndo_, true)) return false;
    Tell(hasOlder ? tr("Undo would take back what was done before the @LINK was changed. Once more does so.")
                  : tr("The change of the @LINK is no step of undo."));
    return true;
}

void PutBack::DropIfPast() {
    if (IsOffered() && IsPast()) Drop();
}

bool PutBack::IsPast() const {
    return window_.CurrentIndex() != former_.slice || document::StateOf(window_) != state_;
}

void PutBack::Apply() {
    DropIfPast();
    if (!IsOffered()) return;
    support::Report("PutBack", "Apply", [this] {
        const dialogs::FormerLinks former = former_;
        Drop();
        dialogs::PutBackLinks(window_, former);
        Tell(former.links.size() == 1 ? tr("The @LINK is as it was before.")
                                      : tr("The @LINKs are as they were before."));
    });
}

void PutBack::Drop() {
    former_ = {};
    bar_.OfferPutBack(false);
    window_.ScheduleUpdate();
}

void PutBack::Tell(const QString &text) { window_.Status().TellInPassing(settings::ReplaceTerms(text)); }

} // namespace mainwindow
