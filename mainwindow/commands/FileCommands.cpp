// The menu File.
#include "mainwindow/menus/Commands.h"

#include "document/DoSave.h"
#include "document/MemoryGuard.h"
#include "mainwindow/commands/Exchange.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/slices/SliceViews.h"
#include "mainwindow/slices/WindowPrinting.h"
#include "mainwindow/start/WindowJournal.h"
#include "mainwindow/templates/TemplateBar.h"
#include "mainwindow/window/ShowForm.h"
#include "mainwindow/window/WindowStatus.h"
#include "settings/Settings.h"
#include "templates/SaveAsTemplate.h"

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

// The journal ends with the save, before the next edit goes into it: the next start must not offer it for a
// file that is newer.
void Save(frmMain &window) {
    if (document::DoSave(window) && window.Journal()) window.Journal()->Saved();
}

void mnuFileSave(frmMain &window) {
    window.Views().StoreTexts();
    if (window.clsSettings().Database().isEmpty())
        window.SetMousePointer(kNormal); // a name will be asked for
    Save(window);
}

// Takes the path away, so that saving asks for one, and puts it back unless another has taken its place.
class WithoutPath {
public:
    explicit WithoutPath(document::clsfrmMain &settings) : settings_(settings), old_(settings.Database()) {
        settings_.SetDatabase(QString());
    }
    ~WithoutPath() {
        if (settings_.Database().isEmpty()) settings_.SetDatabase(old_);
    }
    WithoutPath(const WithoutPath &) = delete;
    WithoutPath &operator=(const WithoutPath &) = delete;

private:
    document::clsfrmMain &settings_;
    QString old_;
};

void mnuFileSaveAs(frmMain &window) {
    window.Views().StoreTexts();
    window.SetMousePointer(kNormal);
    const WithoutPath untitled(window.clsSettings());
    Save(window);
}

void mnuFileSaveAsTemplate(frmMain &window) {
    window.Views().StoreTexts();
    templates::SaveAsTemplateArgument argument{window, window.CurrentSurface(), TemplateBar::Refresh};
    if (document::Show(window, argument))
        window.Status().TellInPassing(
            settings::ReplaceTerms(frmMain::tr("The @SLICE is saved as a template.")));
}

bool IsAuthor() { return settings::Terms().AUTHOR; }

void mnuFilePageSetup(frmMain &window) { window.Printing().PageSetup(); }
void mnuFilePrint(frmMain &window) { window.Printing().Print(); }
void mnuFilePrintPreview(frmMain &window) { window.Printing().Preview(); }

void mnuFileExit(frmMain &window) { window.close(); }

constexpr EntryKind kMenu = EntryKind::Menu;
constexpr EntryKind kCommand = EntryKind::Command;

constexpr CommandRow kRows[] = {
    {"", "mnuFile", "&File", kMenu},
    {"mnuFile", "mnuFileNew", "&New", kCommand, mnuFileNew, "new", "", "Ctrl+N"},
    {"mnuFile", "mnuFileOpen", "&Open...", kCommand, mnuFileOpen, "open", "", "Ctrl+O"},
    {"mnuFile", "mnuFileSave", "&Save", kCommand, mnuFileSave, "save", "", "Ctrl+S", Needs::Nothing, true},
    {"mnuFile", "mnuFileSaveAs", "&Save As...", kCommand, mnuFileSaveAs, "saveas", "", "Ctrl+Shift+S",
     Needs::Nothing, true},
    {.parent = "mnuFile",
     .key = "mnuFileSaveAsTemplate",
     .caption = "&Save As Template...",
     .routine = mnuFileSaveAsTemplate,
     .image = "template",
     .offered = IsAuthor},
    Separator("mnuFile", "mnuFileSep1"),
    {"mnuFile", "mnuFileImport", "&Import...", kCommand, mnuFileImport, "import"},
    {"mnuFile", "mnuFileExport", "&Export...", kCommand, mnuFileExport, "export"},
    {"mnuFile", "mnuFileExportPicture", "&Export as picture...", kCommand, mnuFileExportPicture, "picture"},
    Separator("mnuFile", "mnuFileSep2"),
    // Without a printer pages can be seen, and go to PDF files.
    {"mnuFile", "mnuFilePageSetup", "Page Setup...", kCommand, mnuFilePageSetup, "pagesetup"},
    {"mnuFile", "mnuFilePrint", "&Print...", kCommand, mnuFilePrint, "print", "", "Ctrl+P"},
    {"mnuFile", "mnuFilePrintPreview", "Print Preview...", kCommand, mnuFilePrintPreview, "preview"},
    Separator("mnuFile", kRecentSeparator),
    Separator("mnuFile", "mnuFileSep3"),
    {"mnuFile", "mnuFileExit", "E&xit", kCommand, mnuFileExit, "exit", "", "Ctrl+Q Ctrl+W"},
};

} // namespace

std::span<const CommandRow> FileCommands() { return kRows; }

} // namespace mainwindow
