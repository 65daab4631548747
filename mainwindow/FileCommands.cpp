#include "mainwindow/Commands.h"

#include "document/DoSave.h"
#include "document/MemoryGuard.h"
#include "mainwindow/frmMain.h"

namespace mainwindow {

namespace {

using document::pointer::kNormal;

void mnuFileNew(frmMain &window) {
    if (!document::MemoryGuard(window.Desktop())) return;
    auto *form = new frmMain(window.Desktop());
    form->ShowWindow();
}

void mnuFileOpen(frmMain &window) {
    const bool newWindow = window.WantsNewWindow();
    window.SetMousePointer(kNormal);
    if (document::MemoryGuard(window.Desktop())) window.DoOpen(QString(), newWindow);
}

void mnuFileSave(frmMain &window) {
    if (window.clsSettings().Database().isEmpty())
        window.SetMousePointer(kNormal); // a name will be asked for
    document::DoSave(window);
}

void mnuFileSaveAs(frmMain &window) {
    const QString old = window.clsSettings().Database();
    window.SetMousePointer(kNormal);
    window.clsSettings().SetDatabase(QString());
    document::DoSave(window);
    if (window.clsSettings().Database().isEmpty()) window.clsSettings().SetDatabase(old);
}

void mnuFileExit(frmMain &window) { window.close(); }

constexpr EntryKind kMenu = EntryKind::Menu;
constexpr EntryKind kCommand = EntryKind::Command;

constexpr CommandRow kRows[] = {
    {"", "mnuFile", "&File", kMenu},
    {"mnuFile", "mnuFileNew", "&New", kCommand, mnuFileNew, "new", "", "Ctrl+N"},
    {"mnuFile", "mnuFileOpen", "&Open...", kCommand, mnuFileOpen, "open", "", "Ctrl+O"},
    {"mnuFile", "mnuFileSave", "&Save", kCommand, mnuFileSave, "save", "", "Ctrl+S"},
    {"mnuFile", "mnuFileSaveAs", "&Save As...", kCommand, mnuFileSaveAs, "saveas", "", "Ctrl+Shift+S"},
    Separator("mnuFile", kRecentSeparator),
    Separator("mnuFile", "mnuFileSep3"),
    {"mnuFile", "mnuFileExit", "E&xit", kCommand, mnuFileExit, "exit", "", "Ctrl+Q Ctrl+W"},
};

} // namespace

std::span<const CommandRow> FileCommands() { return kRows; }

} // namespace mainwindow
