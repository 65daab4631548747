// Forms that the program may not have yet.
#pragma once

#include "mainwindow/frmMain.h"
#include "mainwindow/window/WindowStatus.h"

namespace mainwindow {

// Opens the form; while the program has none for that argument, the status bar says that `what` is missing.
// False when it was cancelled too.
template <support::FormArgument Argument>
bool ShowForm(frmMain &window, Argument &argument, const QString &what) {
    if (support::HasForm<Argument>(window.Desktop())) return document::Show(window, argument);
    window.SetMousePointer(document::pointer::kNormal);
    window.Status().TellNotYet(what);
    return false;
}

} // namespace mainwindow
