#include "mainwindow/templates/UseTemplate.h"

#include "diagram/view/SurfaceView.h"
#include "dialogs/OpenAttachment.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/slices/SliceViews.h"
#include "mainwindow/window/Hourglass.h"
#include "mainwindow/window/WindowStatus.h"
#include "settings/clsRB.h"
#include "templates/LoadTemplate.h"
#include "templates/TemplateFiles.h"

namespace mainwindow {

namespace {

// The entries of all windows show whether the next click asks.
std::int32_t Ask() {
    settings::clsRB prompt;
    const std::int32_t choice = prompt.DisplayPrompt(false);
    for (frmMain *form : frmMain::Forms())
        form->SetMenuValue(QStringLiteral("mnuViewRBPrompt"), prompt.GetDisplayPrompt());
    return choice;
}

bool MakesNewSlice(frmMain &window) {
    const int before = window.TabStrip().TabCount();
    window.DoInsertSlice();
    const int now = window.TabStrip().TabCount();
    if (now == before) return false;
    window.TabStrip().SetTheTab(now - 1);
    return true;
}

void ShowChanged(frmMain &window) {
    window.ClickTab();
    window.Status().HiddenMayDiffer();
    window.ScheduleUpdate();
    window.CurrentView().setFocus();
}

} // namespace

void UseTemplate(frmMain &window, const QString &file) {
    window.Views().EndEdits();
    window.SetMousePointer(document::pointer::kNormal);
    const std::int32_t choice = Ask();
    if (choice == settings::clsRB::kCancel) return;
    templates::SurfaceFileOf(file); // raises its error before a slice is made for it
    if (choice == settings::clsRB::kNew && !MakesNewSlice(window)) return;
    const Hourglass hourglass(window);
    window.DoEvents();
    templates::LoadTemplate(window, window.CurrentSurface(), file);
    ShowChanged(window);
}

void AddTemplateAt(frmMain &window, const QString &file, const QPointF &twips) {
    window.Views().EndEdits();
    const Hourglass hourglass(window);
    templates::InsertTemplate(window, window.CurrentSurface(), file, twips);
    ShowChanged(window);
}

void OpenExternal(frmMain &window, const QString &file) {
    const Hourglass hourglass(window);
    dialogs::OpenAttachment(window, file);
}

} // namespace mainwindow
