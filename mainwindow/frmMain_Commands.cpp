// The one place where commands run, and what keeps their entries in step.
#include "mainwindow/frmMain.h"

#include "diagram/model/ScreenValues.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/commands/FormatCommands.h"
#include "mainwindow/commands/TimelineCommands.h"
#include "mainwindow/controls/TextBox.h"
#include "mainwindow/find/FilterBoxes.h"
#include "mainwindow/menus/Commands.h"
#include "mainwindow/menus/SmartMenu.h"
#include "mainwindow/menus/Toolbar.h"
#include "mainwindow/slices/LookBar.h"
#include "mainwindow/slices/Overview.h"
#include "mainwindow/slices/PutBack.h"
#include "mainwindow/slices/SliceViews.h"
#include "mainwindow/slices/UndoRedo.h"
#include "mainwindow/start/StartOffer.h"
#include "mainwindow/window/frmPics.h"
#include "mainwindow/window/WindowStatus.h"
#include "mainwindow/WindowParts.h"

#include <utility>

namespace mainwindow {

namespace {

using document::pointer::kHourglass;
using document::pointer::kNormal;

} // namespace

void frmMain::SmartMenuXP1_Click(const QString &key) {
    support::Report("frmMain", "SmartMenuXP1_Click", [&] {
        SetMousePointer(kHourglass);
        const CommandRow *row = FindCommand(key);
        if (!row || !row->leavesTextBox) views_->EndEdits();
        if (key.startsWith(QLatin1String(kRecentFile)))
            DoOpen(key.mid(QLatin1String(kRecentFile).size()), WantsNewWindow());
        else if (row)
            row->routine(*this);
        else
            ShowUnknownKey(desktop_, key);
        SetMousePointer(kNormal); // not reached after a failure: the pointer then stays as it is
        ScheduleUpdate();
    });
}

void frmMain::tlbMain_ButtonClick(const QString &key) {
    support::Report("frmMain", "tlbMain_ButtonClick", [&] {
        if (key == QLatin1String("UNDO") || key == QLatin1String("REDO")) {
            views_->EndEdits();
            return key == QLatin1String("REDO") ? history_->Redo() : history_->Undo();
        }
        for (const ButtonRow &row : MainButtons())
            if (*row.command && key == QLatin1String(row.key))
                return SmartMenuXP1_Click(QLatin1String(row.command));
        if (FindFormat(key)) return tlbFormat_ButtonClick(key);
        ShowUnknownButton(desktop_, key);
    });
}

void frmMain::ScheduleUpdate() {
    if (!update_.isActive()) update_.start();
}

void frmMain::UpdateCommands() {
    if (!views_->Has(CurrentIndex())) return; // in the middle of a load, or closed
    putBack_->DropIfPast();
    const diagram::Surface &surface = CurrentSurface();
    const bool selected = !surface.SelectedNodes().empty() || !surface.SelectedLinks().empty();
    const std::pair<Needs, bool> states[] = {
        {Needs::Undo, surface.CanUndo() || putBack_->IsOffered()},
        {Needs::Redo, surface.CanRedo()},
        {Needs::Selection, selected},
        {Needs::SelectionOrText, selected || FocusedTextBox()},
        {Needs::CopiedLook, selected && !frmPics_->Look().IsEmpty()},
    };
    for (const auto &[needs, enabled] : states) parts_->SetEnabled(needs, enabled);
    look_->Update();
    SetMenuValue(QStringLiteral("mnuViewGrid"), surface.GridLines());
    SetMenuValue(QStringLiteral("mnuViewSnapGrid"), surface.Screen().SnapToGrid());
    if (status_->MayHiddenDiffer()) {
        ShowTimelineTick(*this);
        status_->ShowHidden(filter_->HiddenNodes());
    }
    status_->Update();
    start_->Update();
    overview_->Update();
}

} // namespace mainwindow
