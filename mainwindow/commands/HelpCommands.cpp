// The menu Help.
#include "mainwindow/menus/Commands.h"

#include "mainwindow/forms/frmAbout.h"
#include "mainwindow/frmMain.h"
#include "support/cOpenFile.h"
#include "support/Files.h"

#include <QDir>

namespace mainwindow {

namespace {

const QString kWebsite = QStringLiteral("https://www.velmora.example/");

void mnuHelpAbout(frmMain &window) {
    AboutForm form;
    document::Show(window, form);
}

void mnuHelpHelp(frmMain &window) {
    const QString help = QDir(support::ProgramPath()).filePath(QStringLiteral("help.pdf"));
    support::cOpenFile(window.Desktop()).LaunchFile(help);
}

void mnuHelpWeb(frmMain &window) { support::cOpenFile(window.Desktop()).LaunchAddress(kWebsite); }

constexpr CommandRow kRows[] = {
    {"", "mnuHelp", "&Help", EntryKind::Menu},
    {"mnuHelp", "mnuHelpHelp", "&Help", EntryKind::Command, mnuHelpHelp, "help", "", "F1"},
    {"mnuHelp", "mnuHelpWeb", "Visit Website", EntryKind::Command, mnuHelpWeb, "web"},
    {"mnuHelp", "mnuHelpAbout", "&About...", EntryKind::Command, mnuHelpAbout, "about"},
};

} // namespace

std::span<const CommandRow> HelpCommands() { return kRows; }

} // namespace mainwindow
