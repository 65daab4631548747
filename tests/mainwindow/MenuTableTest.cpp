// The whole menu, both toolbars and the popup, entry by entry.
#include "app/settings/clsMRU.h"
#include "app/settings/clsRB.h"
#include "app/settings/Settings.h"
#include "dialogs/PropertyForms.h"
#include "mainwindow/frmAbout.h"
#include "mainwindow/frmLayers.h"
#include "mainwindow/frmLayout.h"
#include "mainwindow/TimelineMenu.h"
#include "mainwindow/Toolbar.h"
#include "output/print/PrintForms.h"
#include "support/Files.h"
#include "templates/SaveAsTemplate.h"
#include "tests/mainwindow/WindowTest.h"
#include "timeline/AddTimelineLink.h"

#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolButton>

namespace mainwindow::testing {

namespace {

// One line an entry: "parent key [kind] caption", in the order in which a menu is read; a submenu's entries
// behind their parent's entry.
void Describe(const QMenu &menu, const QString &parent, QStringList &lines) {
    for (const QAction *entry : menu.actions()) {
        const QString kind = entry->isSeparator()   ? QStringLiteral("sep")
                             : entry->menu()        ? QStringLiteral("menu")
                             : entry->isCheckable() ? QStringLiteral("check")
                                                    : QStringLiteral("command");
        lines << QStringList{parent, entry->objectName(), kind,
                             entry->isSeparator() ? QString() : entry->text()}
                     .join(u'|');
        if (entry->menu()) Describe(*entry->menu(), entry->objectName(), lines);
    }
}

QStringList Described(const frmMain &window) {
    QStringList lines;
    for (const QAction *entry : window.menuBar()->actions()) {
        lines << QStringLiteral("|%1|menu|%2").arg(entry->objectName(), entry->text());
        Describe(*entry->menu(), entry->objectName(), lines);
    }
    return lines;
}

constexpr const char *kMenu[] = {
    "|mnuFile|menu|&File",
    "mnuFile|mnuFileNew|command|&New",
    "mnuFile|mnuFileOpen|command|&Open...",
    "mnuFile|mnuFileSave|command|&Save",
    "mnuFile|mnuFileSaveAs|command|&Save As...",
    "mnuFile|mnuFileSep1|sep|",
    "mnuFile|mnuFileImport|command|&Import...",
    "mnuFile|mnuFileExport|command|&Export...",
    "mnuFile|mnuFileExportPicture|command|&Export as picture...",
    "mnuFile|mnuFileSep2|sep|",
    "mnuFile|mnuFilePageSetup|command|Page Setup...",
    "mnuFile|mnuFilePrint|command|&Print...",
    "mnuFile|mnuFilePrintPreview|command|Print Preview...",
    "mnuFile|mnuFileSep3|sep|",
    "mnuFile|mnuFileExit|command|E&xit",
    "|mnuEdit|menu|&Edit",
    "mnuEdit|mnuEditUndo|command|&Undo",
    "mnuEdit|mnuEditRedo|command|&Redo",
    "mnuEdit|mnuEditSep1|sep|",
    "mnuEdit|mnuEditCut|command|Cu&t",
    "mnuEdit|mnuEditCopy|command|&Copy",
    "mnuEdit|mnuEditPaste|command|&Paste",
    "mnuEdit||sep|",
    "mnuEdit|mnuEditCopyClipboard|command|&Copy to clipboard",
    "mnuEdit||sep|",
    "mnuEdit|mnuEditSlices|menu|Slice",
    "mnuEditSlices|mnuEditSlicesInsert|command|&Insert",
    "mnuEditSlices|mnuEditSlicesDelete|command|&Delete",
    "mnuEditSlices|mnuEditSlicesRename|command|&Rename",
    "mnuEditSlices|mnuEditSlicesSep1|sep|",
    "mnuEditSlices|mnuEditSlicesSlices|command|&Edit...",
    "mnuEdit||sep|",
    "mnuEdit|mnuEditSelectAll|command|&Select All",
    "mnuEdit|mnuEditUnSelectAll|command|&UnSelect All",
    "mnuEdit||sep|",
    "mnuEdit|mnuEditProperties|command|Properties...",
    "|mnuView|menu|&View",
    "mnuView|mnuViewG|menu|&Grid",
    "mnuViewG|mnuViewGrid|check|&Grid Lines",
    "mnuViewG|mnuViewSnapGrid|check|&Snap to Grid",
    "mnuView|mnuViewZoom|menu|&Zoom",
    "mnuViewZoom|mnuViewZoom100|command|100% (Normal)",
    "mnuViewZoom|mnuViewZoom150|command|150%",
    "mnuViewZoom|mnuViewZoom75|command|75%",
    "mnuViewZoom|mnuViewZoomFit|command|Fit in window",
    "mnuView|mnuViewTimeline|check|&Timeline",
    "mnuView|mnuViewBackgroun|menu|&Background",
    "mnuViewBackgroun|mnuViewBackgroundColor|command|&Color...",
    "mnuViewBackgroun|mnuViewBackgroundPicture|command|&Picture",
    "mnuViewBackgroun||sep|",
    "mnuViewBackgroun|mnuViewBackgroundClear|command|C&lear",
    "mnuView||sep|",
    "mnuView|mnuViewDefaultNode|command|&Default Node...",
    "mnuView|mnuViewTimelineSetup|command|&Timeline Setup...",
    "mnuView||sep|",
    "mnuView|mnuViewLevels|command|Level Setup...",
    "mnuView|mnuViewGroups|command|Group Setup...",
    "mnuView||sep|",
    "mnuView|mnuViewStartup|check|Show Startup Map",
    "mnuView|mnuViewRBPrompt|check|Show RHS Prompt",
    "mnuView||sep|",
    "mnuView|mnuViewTemplates|check|Te&mplates",
    "mnuView|mnuViewStartPage|check|Show Start Page",
    "mnuView||sep|",
    "mnuView|mnuViewTimelineLineUp|command|Line up by date",
    "mnuView|mnuViewTimelineKeep|check|Keep Nodes at their dates",
    "mnuView|mnuViewLanes|menu|Lanes beside the timeline",
    "mnuViewLanes|mnuViewLanesNone|check|None",
    "mnuViewLanes|mnuViewLanesLevel|check|By level",
    "mnuViewLanes|mnuViewLanesGroup|check|By group",
    "mnuView|mnuViewTimelineTidy|command|Tidy the timeline",
    "mnuView|mnuViewTimelineFill|command|Fill in missing months",
    "|mnuLayout|menu|&Layout",
    "mnuLayout|mnuLayoutHExecute|command|Hierarchical",
    "mnuLayout|mnuLayoutTreeExecute|command|Tree",
    "|mnuHelp|menu|&Help",
    "mnuHelp|mnuHelpHelp|command|&Help",
    "mnuHelp|mnuHelpWeb|command|Visit Website",
    "mnuHelp|mnuHelpAbout|command|&About...",
};

QStringList Lines(std::span<const char *const> lines) {
    QStringList list;
    for (const char *line : lines) list << QString::fromUtf8(line);
    return list;
}

// "key|tip", of a check style "key|tip|check", of a button with a menu "key|tip|menu".
QStringList Buttons(const frmMain &window, const char *name) {
    const auto *bar = window.findChild<Toolbar *>(QLatin1String(name));
    QStringList buttons;
    for (const QAction *button : bar->actions()) {
        if (button->isSeparator() ||
            bar->widgetForAction(const_cast<QAction *>(button))->inherits("QComboBox"))
            continue;
        QString line = button->objectName() + u'|' + button->toolTip();
        if (button->isCheckable()) line += QStringLiteral("|check");
        if (button->menu()) line += QStringLiteral("|menu");
        buttons << line;
    }
    return buttons;
}

class MenuTable : public WindowTest {
protected:
    static QAction *Entry(frmMain &window, const char *key) {
        return window.menuBar()->findChild<QAction *>(QLatin1String(key));
    }
};

} // namespace

TEST_F(MenuTable, HoldsEveryEntryInItsPlace) { EXPECT_EQ(Described(NewWindow()), Lines(kMenu)); }

TEST_F(MenuTable, AuthorsHaveTheTemplateEntryAndNothingElseMoves) {
    settings::ProductTerms terms = settings::Terms();
    terms.AUTHOR = true;
    settings::SetTerms(terms);
    QStringList expected = Lines(kMenu);
    expected.insert(5, QStringLiteral("mnuFile|mnuFileSaveAsTemplate|command|&Save As Template..."));
    EXPECT_EQ(Described(NewWindow()), expected);
}

TEST_F(MenuTable, RecentFilesStandAboveTheLastSeparatorWithOneOfTheirOwn) {
    const QString path = SavedMap(QStringLiteral("plan.map"), 1);
    QStringList expected = Lines(kMenu);
    expected.insert(13, QStringLiteral("mnuFile|mnuFileSepMRU|sep|"));
    expected.insert(14, QStringLiteral("mnuFile|mnuFileMRU|%1|command|...%2").arg(path, path.right(25)));
    EXPECT_EQ(Described(NewWindow()), expected);
}

// Pages are seen, and go to PDF files, without any.
TEST_F(MenuTable, OnlyTheButtonForPrintingNeedsAPrinter) {
    desktop.printers.names = {};
    frmMain &without = NewWindow();
    desktop.printers.names = {QStringLiteral("Office")};
    frmMain &with = NewWindow();
    for (const char *key : {"mnuFilePageSetup", "mnuFilePrint", "mnuFilePrintPreview"}) {
        EXPECT_TRUE(Entry(without, key)->isEnabled()) << key;
        EXPECT_TRUE(Entry(with, key)->isEnabled()) << key;
    }
    EXPECT_FALSE(without.findChild<Toolbar *>(QStringLiteral("tlbMain"))
                     ->Button(QStringLiteral("PRINT"))
                     ->isEnabled());
    EXPECT_TRUE(
        with.findChild<Toolbar *>(QStringLiteral("tlbMain"))->Button(QStringLiteral("PRINT"))->isEnabled());
}

TEST_F(MenuTable, PrintersWaitUntilNoRoutineLetsEventsRun) {
    desktop.printers.names = {QStringLiteral("Office")};
    auto *window = new frmMain(desktop.Get()); // deletes itself when it is closed
    window->ShowWindow();
    for (int i = 0; i < 3; ++i) window->DoEvents();
    const QAction *print =
        window->findChild<Toolbar *>(QStringLiteral("tlbMain"))->Button(QStringLiteral("PRINT"));
    EXPECT_FALSE(print->isEnabled());
    EXPECT_TRUE(QTest::qWaitFor([&] { return print->isEnabled(); }));
}

TEST_F(MenuTable, ToolbarsHoldEveryButtonInItsPlace) {
    frmMain &window = NewWindow();
    EXPECT_EQ(Buttons(window, "tlbMain"),
              QStringList({QStringLiteral("NEW|New Map"), QStringLiteral("OPEN|Open Map"),
                           QStringLiteral("SAVE|Save Map"), QStringLiteral("CUT|Cuts selection to clipboard"),
                           QStringLiteral("COPY|Copies selection to clipboard"),
                           QStringLiteral("PASTE|Pastes selection to clipboard"), QStringLiteral("UNDO|Undo"),
                           QStringLiteral("REDO|Redo"), QStringLiteral("PRINT|Print")}));
    EXPECT_EQ(Buttons(window, "tlbFormat"),
              QStringList({QStringLiteral("NEW|New Element|menu"), QStringLiteral("BOLD|Bold"),
                           QStringLiteral("ITALIC|Italic"), QStringLiteral("ULINE|Underline"),
                           QStringLiteral("LEFT|Left"), QStringLiteral("CENTER|Center"),
                           QStringLiteral("RIGHT|Right"), QStringLiteral("FRONT|Bring to front"),
                           QStringLiteral("BACK|Send to back"),
                           QStringLiteral("DISPLAY|Toogles the display of both texts on and off|check"),
                           QStringLiteral("EXPAND|Expand Timeline Nodes"),
                           QStringLiteral("COMPRESS|Compress Timeline Nodes"),
                           QStringLiteral("LINEUP|Line up by date")}));
}

TEST_F(MenuTable, EveryButtonAndEveryImageIsThere) {
    frmMain &window = NewWindow();
    for (const char *name : {"tlbMain", "tlbFormat"})
        for (const QAction *button : window.findChild<Toolbar *>(QLatin1String(name))->actions()) {
            if (!button->objectName().isEmpty() && !button->isSeparator()) {
                EXPECT_FALSE(button->icon().isNull()) << button->objectName().toStdString();
            }
        }
    for (const CommandRow &row : mainwindow::Commands()) {
        const QAction *entry = Entry(window, row.key);
        if (entry && *row.image) {
            EXPECT_FALSE(entry->icon().isNull()) << row.key;
        }
    }
}

namespace {

// What the commands ask for on their way; each is cancelled.
struct Asks {
    const char *key;
    void (*expect)(support::testing::ScriptedDesktop &desktop);
};
using Script = support::testing::ScriptedDesktop;
void AskOpen(Script &desktop) { desktop.ExpectOpenFile(QString()); }
void AskSave(Script &desktop) { desktop.ExpectSaveFile(QString()); }
void AskName(Script &desktop) { desktop.ExpectInput(QStringLiteral("Name for Slice."), QString()); }
template <typename Argument>
void AskForm(Script &desktop) {
    desktop.ExpectForm<Argument>();
}
const Asks kAsks[] = {
    {"mnuFileOpen", AskOpen},
    {"mnuFileSave", AskSave},
    {"mnuFileSaveAs", AskSave},
    {"mnuFileImport", AskOpen},
    {"mnuFileExport", AskSave},
    {"mnuFileExportPicture", AskSave},
    {"mnuFilePageSetup", AskForm<print::PageSetupArgument>},
    {"mnuFilePrint", [](Script &desktop) { desktop.ExpectPrinter(false); }},
    {"mnuFilePrintPreview", AskForm<print::PrintPreviewArgument>},
    {"mnuEditSlicesInsert", AskName},
    {"mnuEditSlicesRename", AskName},
    {"mnuEditSlicesDelete",
     [](Script &desktop) { desktop.ExpectMessageContaining(QStringLiteral("Cannot")); }},
    {"mnuEditSlicesSlices", AskForm<frmLayers>},
    {"mnuEditProperties", [](Script &desktop) { desktop.ExpectMessageContaining(QStringLiteral("Please")); }},
    {"mnuViewBackgroundColor", [](Script &desktop) { desktop.ExpectColour(support::kNoColour); }},
    {"mnuViewBackgroundPicture", AskOpen},
    {"mnuViewDefaultNode", AskForm<timeline::TimelineSetupArgument>},
    {"mnuViewTimelineSetup", AskForm<timeline::TimelineSetupArgument>},
    {"mnuFileSaveAsTemplate", AskForm<templates::SaveAsTemplateArgument>},
    {"mnuViewRBPrompt", AskForm<settings::clsRB>},
    {"mnuViewLevels", AskForm<dialogs::LevelsFormArgument>},
    {"mnuViewGroups", AskForm<dialogs::GroupsFormArgument>},
    {"mnuLayoutHOptions", AskForm<LayoutFormArgument>},
    {"mnuLayoutTreeOptions", AskForm<LayoutFormArgument>},
    {"mnuHelpHelp",
     [](Script &desktop) {
         desktop.ExpectLaunch(QDir(support::ProgramPath()).filePath(QStringLiteral("help.pdf")));
     }},
    {"mnuHelpWeb",
     [](Script &desktop) { desktop.ExpectAddress(QStringLiteral("https://www.velmora.example/")); }},
    {"mnuHelpAbout", AskForm<AboutForm>},
};

} // namespace

TEST_F(MenuTable, NoCommandIsStillToCome) {
    desktop.printers.names = {QStringLiteral("Office")};
    frmMain &window = NewWindow();
    QStringList told;
    for (const CommandRow &row : mainwindow::Commands()) {
        const QString key = QLatin1String(row.key);
        if (!row.routine || key == QLatin1String("mnuFileExit")) continue;
        for (const Asks &asks : kAsks)
            if (key == QLatin1String(asks.key)) asks.expect(desktop);
        window.DoStatus(QString());
        window.SetMenuValue(key, true);
        window.SmartMenuXP1_Click(key);
        if (Status(window).contains(QStringLiteral("not there yet"))) told << key + u'|' + Status(window);
    }
    EXPECT_EQ(told, QStringList());
}

} // namespace mainwindow::testing
