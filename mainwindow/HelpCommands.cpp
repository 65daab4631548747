#include "mainwindow/Commands.h"

#include "mainwindow/frmAbout.h"
#include "mainwindow/frmMain.h"

namespace mainwindow {

namespace {

void mnuHelpAbout(frmMain &window) {
    window.SetMousePointer(document::pointer::kNormal);
    window.Desktop().dialogHost.ShowModal(QLatin1String(kFormAbout), nullptr, &window);
}

constexpr CommandRow kRows[] = {
    {"", "mnuHelp", "&Help", EntryKind::Menu},
    {"mnuHelp", "mnuHelpAbout", "&About...", EntryKind::Command, mnuHelpAbout, "about"},
};

} // namespace

std::span<const CommandRow> HelpCommands() { return kRows; }

} // namespace mainwindow
