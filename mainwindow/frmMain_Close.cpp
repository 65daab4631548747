// Closing: the question about changes, and what is stored.
#include "mainwindow/frmMain.h"

#include "diagram/view/SurfaceView.h"
#include "document/DoSave.h"
#include "mainwindow/forms/frmSplash.h"
#include "mainwindow/Placement.h"
#include "mainwindow/slices/SliceViews.h"
#include "mainwindow/start/WindowJournal.h"
#include "mainwindow/window/frmPics.h"

#include <algorithm>
#include <QCloseEvent>
#include <utility>

namespace mainwindow {

using support::Answer;

bool frmMain::InsideRoutine() {
    const std::vector<frmMain *> forms = Forms();
    return std::any_of(forms.begin(), forms.end(),
                       [](const frmMain *form) { return form->lettingEventsRun_; });
}

void frmMain::closeEvent(QCloseEvent *event) {
    if (InsideRoutine()) return event->ignore();
    bool cancel = document::MustAskBeforeLosing(*this); // a save that fails keeps the window
    support::Report("frmMain", "Form_QueryUnload", [&] { Form_QueryUnload(cancel); });
    if (cancel) return event->ignore();
    support::Report("frmMain", "Form_Unload", [this] { Form_Unload(); });
    if (journal_) journal_->Close();
    event->accept();
}

void frmMain::Form_QueryUnload(bool &cancel) {
    views_->EndEdits();
    cancel = false;
    if (document::MustAskBeforeLosing(*this)) {
        cancel = true;
        const Answer answer =
            desktop_.messageBoxes.Show(QStringLiteral("Save Changes?"), support::Buttons::YesNoCancel,
                                       support::Icon::Question, windowTitle());
        cancel = answer == Answer::Cancel || (answer == Answer::Yes && !document::DoSave(*this));
    }
    if (!cancel && frmPics_) std::exchange(frmPics_, nullptr)->RemoveUsage(*this);
}

void frmMain::Form_Unload() {
    if (!isMinimized()) WritePlacement(desktop_.registry, *this);
    for (int index = AddFlow1_.UBound(); AddFlow1_.Count() > 1; --index)
        if (AddFlow1_.Exists(index)) AddFlow1_.Unload(index);
    frmSplash::Unload();
}

} // namespace mainwindow
