// The whole menu, both toolbars and the popup, entry by entry.
#include "mainwindow/commands/TimelineMenu.h"
#include "mainwindow/menus/Commands.h"
#include "mainwindow/menus/Toolbar.h"
#include "settings/Settings.h"
#include "tests/mainwindow/WindowTest.h"

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
    "mnuEdit||sep|",
    "mnuEdit|mnuEditDelete|command|&Delete",
    "mnuEdit|keyDuplicate|command|Dup&licate",
    "mnuEdit|keyEditText|command|&Edit text",
    "mnuEdit|keyAddChild|command|Add a linked Node",
    "mnuEdit|keyAddSibling|command|Add a sibling Node",
    "mnuEdit|mnuEditLinks|menu|Links by keyboard",
    "mnuEditLinks|keyLinkTo|command|Link &to another Node",
    "mnuEditLinks|keyLinkFrom|command|Link &from another Node",
    "mnuEditLinks|keyBend|command|&Bend the Link",
    "mnuEdit|mnuEditSepFind|sep|",
    "mnuEdit|keyFind|command|&Find...",
    "mnuEdit|keyReplace|command|Repl&ace...",
    "mnuEdit|keyFindNext|command|Find ne&xt",
    "mnuEdit|keyFindPrevious|command|Find pre&vious",
    "mnuEdit||sep|",
    "mnuEdit|mnuEditLook|menu|&Look",
    "mnuEditLook|mnuEditLookBold|command|&Bold",
    "mnuEditLook|mnuEditLookItalic|command|&Italic",
    "mnuEditLook|mnuEditLookUnderline|command|&Underline",
    "mnuEditLook||sep|",
    "mnuEditLook|mnuEditLookLeft|command|Text L&eft",
    "mnuEditLook|mnuEditLookCenter|command|Text &Center",
    "mnuEditLook|mnuEditLookRight|command|Text &Right",
    "mnuEditLook||sep|",
    "mnuEditLook|lookFill|command|&Fill...",
    "mnuEditLook|lookLineColour|command|&Line Colour...",
    "mnuEditLook|lookLineWidth|command|Line &Width...",
    "mnuEditLook|lookLineStyle|command|Line &Style...",
    "mnuEditLook|lookTextColour|command|&Text Colour...",
    "mnuEditLook|lookShadow|command|Sha&dow...",
    "mnuEditLook|lookShape|command|S&hape...",
    "mnuEditLook||sep|",
    "mnuEditLook|lookRouting|command|R&outing...",
    "mnuEditLook|lookArrowStart|command|&Arrow at the Start...",
    "mnuEditLook|lookArrowEnd|command|Arrow at the E&nd...",
    "mnuEditLook|lookJumps|command|&Jumps...",
    "mnuEditLook||sep|",
    "mnuEditLook|mnuEditLookCopy|command|Cop&y Look",
    "mnuEditLook|mnuEditLookPaste|command|&Paste Look",
    "mnuEditLook||sep|",
    "mnuEditLook|keyLook|command|&Go to the Look Bar",
    "|mnuView|menu|&View",
    "mnuView|mnuViewG|menu|&Grid",
    "mnuViewG|mnuViewGrid|check|&Grid Lines",
    "mnuViewG|mnuViewSnapGrid|check|&Snap to Grid",
    "mnuView|mnuViewZoom|menu|&Zoom",
    "mnuViewZoom|mnuViewZoom100|command|100% (Normal)",
    "mnuViewZoom|mnuViewZoom150|command|150%",
    "mnuViewZoom|mnuViewZoom75|command|75%",
    "mnuViewZoom|mnuViewZoomFit|command|Fit in window",
    "mnuViewZoom||sep|",
    "mnuViewZoom|keyZoomIn|command|Zoom &in",
    "mnuViewZoom|keyZoomOut|command|Zoom &out",
    "mnuViewZoom|keyZoomSelection|command|Zoom to &selection",
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
    "mnuView|mnuViewOverview|check|O&verview",
    "mnuView|mnuViewLook|check|Loo&k Bar",
    "mnuView||sep|",
    "mnuView|mnuViewShapes|check|S&hapes",
    "mnuView|keyShapes|command|Choose a Shap&e...",
    "mnuView||sep|",
    "mnuView|mnuViewPlan|menu|D&ates",
    "mnuViewPlan|keyDate|command|&Date...",
    "mnuViewPlan|mnuViewTimelineLineUp|command|&Line up by date",
    "mnuViewPlan|mnuViewTimelineKeep|check|&Keep Nodes at their dates",
    "mnuViewPlan|mnuViewTimelinePush|check|&Push what follows",
    "mnuViewPlan|mnuViewLanes|menu|L&anes beside the timeline",
    "mnuViewLanes|mnuViewLanesNone|check|None",
    "mnuViewLanes|mnuViewLanesLevel|check|By level",
    "mnuViewLanes|mnuViewLanesGroup|check|By group",
    "mnuViewPlan|mnuViewTimelineTidy|command|&Tidy the timeline",
    "mnuViewPlan|mnuViewTimelineFill|command|&Fill in missing months",
    "mnuViewPlan|mnuViewDates|menu|&Move dates",
    "mnuViewDates|keyDayLater|command|A &day later",
    "mnuViewDates|keyDayEarlier|command|A d&ay earlier",
    "mnuViewDates|keyWeekLater|command|A &week later",
    "mnuViewDates|keyWeekEarlier|command|A w&eek earlier",
    "mnuViewPlan|mnuViewCalendar|menu|&Beside the timeline",
    "mnuViewCalendar|mnuViewBands|check|Quarters and years",
    "mnuViewCalendar|mnuViewWeekends|check|Shade weekends",
    "mnuViewCalendar|mnuViewTodayEverywhere|check|Today on paper and in pictures",
    "mnuViewPlan|mnuViewFold|menu|F&old the timeline",
    "mnuViewFold|keyFoldMonth|command|&Month of the selection",
    "mnuViewFold|keyFoldQuarter|command|&Quarter of the selection",
    "mnuViewFold|keyFoldYear|command|&Year of the selection",
    "mnuViewFold|keyFoldEmpty|command|Months &without Nodes",
    "mnuViewFold|keyUnfoldAll|command|&Unfold all",
    "mnuView|DISPLAY|check|Bot&h texts",
    "mnuView|EXPAND|command|E&xpand Timeline Nodes",
    "mnuView|COMPRESS|command|&Compress Timeline Nodes",
    "mnuView|mnuViewSepGo|sep|",
    "mnuView|mnuViewGo|menu|G&o to",
    "mnuViewGo|keyNextSlice|command|&Next Slice",
    "mnuViewGo|keyPreviousSlice|command|&Previous Slice",
    "mnuViewGo|keyLastSlice|command|Slice used &last",
    "mnuViewGo|keyFirstSlice|command|Slice used longest &ago",
    "mnuViewGo||sep|",
    "mnuViewGo|keyOverview|command|&Overview",
    "mnuViewGo|keySearch|command|&Search commands",
    "mnuViewGo|keyTemplates|command|Choose a &template",
    "mnuViewGo|keyFont|command|&Font",
    "mnuViewGo|keyFontSize|command|Font si&ze",
    "|mnuLayout|menu|&Layout",
    "mnuLayout|mnuLayoutHExecute|command|Hierarchical",
    "mnuLayout|mnuLayoutTreeExecute|command|Tree",
    "mnuLayout||sep|",
    "mnuLayout|mnuLayoutHOptions|command|&Hierarchical layout options...",
    "mnuLayout|mnuLayoutTreeOptions|command|&Tree layout options...",
    "mnuLayout|mnuLayoutSep2|sep|",
    "mnuLayout|mnuLayoutRadial|command|&Radial",
    "mnuLayout|mnuLayoutOrganic|command|&Organic",
    "mnuLayout|mnuLayoutCircular|command|&Circular",
    "mnuLayout|mnuLayoutLevels|command|By &Level",
    "mnuLayout|mnuLayoutSep3|sep|",
    "mnuLayout|mnuLayoutSelection|command|Lay Out &Selection",
    "|mnuArrange|menu|&Arrange",
    "mnuArrange|FRONT|command|Bring to &front",
    "mnuArrange|BACK|command|Send to &back",
    "mnuArrange|mnuArrangeSep1|sep|",
    "mnuArrange|mnuArrangeAlign|menu|&Align",
    "mnuArrangeAlign|keyAlignLeft|command|Align &left",
    "mnuArrangeAlign|keyAlignCentre|command|Align &centre",
    "mnuArrangeAlign|keyAlignRight|command|Align &right",
    "mnuArrangeAlign||sep|",
    "mnuArrangeAlign|keyAlignTop|command|Align &top",
    "mnuArrangeAlign|keyAlignMiddle|command|Align &middle",
    "mnuArrangeAlign|keyAlignBottom|command|Align &bottom",
    "mnuArrange|mnuArrangeDistribute|menu|&Distribute",
    "mnuArrangeDistribute|keyDistributeAcross|command|Distribute &horizontally",
    "mnuArrangeDistribute|keyDistributeDown|command|Distribute &vertically",
    "mnuArrange|mnuArrangeSize|menu|Same &Size",
    "mnuArrangeSize|keySameWidth|command|Same &width",
    "mnuArrangeSize|keySameHeight|command|Same &height",
    "mnuArrangeSize|keySameSize|command|Same &size",
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
    expected.insert(14,
                    QStringLiteral("mnuFile|mnuFileMRU|%1|command|%2").arg(path, RecentFileCaption(path)));
    EXPECT_EQ(Described(NewWindow()), expected);
}

// A preview and PDF files need no printer.
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
    const QAction *print =
        with.findChild<Toolbar *>(QStringLiteral("tlbMain"))->Button(QStringLiteral("PRINT"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return print->isEnabled(); }));
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
              QStringList({QStringLiteral("NEW|New Map (Ctrl+N)"), QStringLiteral("OPEN|Open Map (Ctrl+O)"),
                           QStringLiteral("SAVE|Save Map (Ctrl+S)"),
                           QStringLiteral("CUT|Cuts selection to clipboard (Ctrl+X)"),
                           QStringLiteral("COPY|Copies selection to clipboard (Ctrl+C)"),
                           QStringLiteral("PASTE|Pastes selection to clipboard (Ctrl+V)"),
                           QStringLiteral("UNDO|Undo (Ctrl+Z)"), QStringLiteral("REDO|Redo (Ctrl+Y)"),
                           QStringLiteral("PRINT|Print (Ctrl+P)")}));
    EXPECT_EQ(Buttons(window, "tlbFormat"),
              QStringList({QStringLiteral("NEW|New Element|menu"), QStringLiteral("BOLD|Bold (Ctrl+B)"),
                           QStringLiteral("ITALIC|Italic (Ctrl+I)"),
                           QStringLiteral("ULINE|Underline (Ctrl+U)"), QStringLiteral("LEFT|Left"),
                           QStringLiteral("CENTER|Center"), QStringLiteral("RIGHT|Right"),
                           QStringLiteral("FRONT|Bring to front"), QStringLiteral("BACK|Send to back"),
                           QStringLiteral("DISPLAY|Toogles the display of both texts on and off|check"),
                           QStringLiteral("EXPAND|Expand Timeline Nodes"),
                           QStringLiteral("COMPRESS|Compress Timeline Nodes"),
                           QStringLiteral("LINEUP|Line up by date (Ctrl+Shift+T)")}));
}

TEST_F(MenuTable, ButtonsOfTheViewTellTheirKeys) {
    frmMain &window = NewWindow();
    EXPECT_EQ(Buttons(window, "tlbView"),
              QStringList({QStringLiteral("keyShapes|Shape: choose one to draw with (F7)"),
                           QStringLiteral("mnuViewGrid|Grid Lines (Ctrl+G)|check"),
                           QStringLiteral("mnuViewSnapGrid|Snap to Grid (Ctrl+Shift+G)|check"),
                           QStringLiteral("keyZoomOut|Zoom out (Ctrl+-)"),
                           QStringLiteral("mnuViewZoom100|100% (Normal) (Ctrl+0)"),
                           QStringLiteral("keyZoomIn|Zoom in (Ctrl++)"),
                           QStringLiteral("mnuViewZoomFit|Fit in window (Ctrl+9)")}));
}

// But for the drop-down "New Element", which has the shapes in a menu of its own.
TEST_F(MenuTable, EveryCommandAndEveryFormatIsInAMenu) {
    settings::ProductTerms terms = settings::Terms();
    terms.AUTHOR = true;
    settings::SetTerms(terms);
    const QStringList described = Described(NewWindow());
    const auto isThere = [&](const char *key) {
        return !described.filter(QStringLiteral("|%1|").arg(QLatin1String(key))).isEmpty();
    };
    for (const CommandRow &row : mainwindow::Commands()) {
        if (row.routine) {
            EXPECT_TRUE(isThere(row.key)) << row.key;
        }
    }
    for (const ButtonRow &row : FormatButtons()) {
        if (*row.key && row.style != ButtonStyle::DropDown) {
            EXPECT_TRUE(isThere(*row.command ? row.command : row.key)) << row.key;
        }
    }
}

TEST_F(MenuTable, EachEntryShowsTheFirstOfItsKeys) {
    frmMain &window = NewWindow();
    int shown = 0;
    for (const CommandRow &row : mainwindow::Commands()) {
        const QAction *entry = row.routine ? Entry(window, row.key) : nullptr;
        if (!entry) continue;
        EXPECT_EQ(entry->shortcut().toString(QKeySequence::NativeText), KeysOf(row)) << row.key;
        if (!entry->shortcut().isEmpty()) ++shown;
    }
    EXPECT_GE(shown, 30);
    EXPECT_EQ(Entry(window, "mnuEditDelete")->shortcut(), QKeySequence(Qt::Key_Delete))
        << "the surface's own";
}

TEST_F(MenuTable, AFormatInTheMenuIsTheButtonItself) {
    frmMain &window = NewWindow();
    diagram::Node &lower = AddNode(window, 900, 900);
    AddNode(window, 1200, 1200);
    lower.SetSelected(true);
    ProcessEvents();
    auto *arrange = window.menuBar()->findChild<QMenu *>(QString(), Qt::FindDirectChildrenOnly);
    for (QMenu *menu : window.menuBar()->findChildren<QMenu *>())
        if (menu->menuAction()->objectName() == QLatin1String("mnuArrange")) arrange = menu;
    arrange->popup(QPoint());
    QTest::keyClick(arrange, Qt::Key_F); // "Bring to &front"
    ProcessEvents();
    EXPECT_EQ(lower.ZOrder(), 1);
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

} // namespace mainwindow::testing
