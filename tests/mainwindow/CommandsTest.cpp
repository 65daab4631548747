#include "tests/mainwindow/WindowTest.h"

#include "diagram/edit/History.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/find/Finder.h"
#include "mainwindow/forms/frmAbout.h"
#include "mainwindow/menus/Commands.h"
#include "settings/clsMRU.h"
#include "settings/GetSet.h"
#include "support/AtomicFile.h"
#include "support/Files.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSet>
#include <QTest>

namespace mainwindow::testing {

namespace {

class Commands : public WindowTest {
protected:
    static QAction *Entry(frmMain &window, const QString &key) {
        return window.menuBar()->findChild<QAction *>(key);
    }
    static QMenu &FileMenu(frmMain &window) { return *window.menuBar()->actions().at(0)->menu(); }
    void NoteRecent(const QString &path) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        settings::clsMRU(desktop.registry).AddFile(path);
    }
};

} // namespace

TEST(RecentFileCaption, ShowsUpTo25CharactersWholeAndTheLast25OfMore) {
    const QString whole = QStringLiteral("/maps/abcdefghijklmno.map");
    ASSERT_EQ(whole.length(), 25);
    EXPECT_EQ(RecentFileCaption(whole), whole);
    EXPECT_EQ(RecentFileCaption(QStringLiteral("x") + whole), QStringLiteral("...") + whole);
}

TEST(CommandRows, EveryRowIsWhole) {
    QSet<QString> keys;
    for (const CommandRow &row : mainwindow::Commands()) {
        const bool acts = row.kind == EntryKind::Command || row.kind == EntryKind::Check;
        EXPECT_EQ(acts, row.routine != nullptr) << row.key;
        EXPECT_TRUE(row.kind == EntryKind::Separator || *row.caption) << row.key;
        if (!*row.key) continue;
        EXPECT_FALSE(keys.contains(QLatin1String(row.key))) << row.key;
        keys.insert(QLatin1String(row.key));
        if (row.parent && *row.parent) {
            EXPECT_TRUE(keys.contains(QLatin1String(row.parent))) << row.key;
        }
    }
}

TEST_F(Commands, RecentFilesAreAtMostFour) {
    for (int i = 1; i <= 5; ++i) NoteRecent(MapFile(QStringLiteral("%1.map").arg(i)));
    QStringList paths;
    for (const QAction *entry : FileMenu(NewWindow()).actions())
        if (entry->objectName().startsWith(QLatin1String(kRecentFile))) paths << entry->data().toString();
    EXPECT_EQ(paths, settings::clsMRU(desktop.registry).GetFiles(5));
    EXPECT_EQ(paths.size(), 4);
}

TEST_F(Commands, SelectAllHasTheOnlyAcceleratorOfTheTablesAndTheOthersKeysOfTheirOwn) {
    QStringList accelerators;
    for (const CommandRow &row : mainwindow::Commands())
        if (*row.accelerator) accelerators << QLatin1String(row.key) + u' ' + QLatin1String(row.accelerator);
    EXPECT_EQ(accelerators, QStringList(QStringLiteral("mnuEditSelectAll Ctrl+A")));
    frmMain &window = NewWindow();
    EXPECT_EQ(Entry(window, QStringLiteral("mnuEditSelectAll"))->shortcut(),
              QKeySequence(QStringLiteral("Ctrl+A")));
    EXPECT_EQ(Entry(window, QStringLiteral("mnuFileSave"))->shortcut(),
              QKeySequence(QStringLiteral("Ctrl+S")));
}

TEST_F(Commands, CaptionsHoldTheTermsOfTheProduct) {
    frmMain &window = NewWindow();
    EXPECT_EQ(Entry(window, QStringLiteral("mnuViewStartup"))->text(), QStringLiteral("Show Startup Map"));
    for (const QAction *entry : window.findChildren<QAction *>()) {
        EXPECT_FALSE(entry->text().contains(u'@')) << entry->text().toStdString();
        EXPECT_FALSE(entry->toolTip().contains(u'@')) << entry->toolTip().toStdString();
    }
}

TEST_F(Commands, AnUnknownKeyIsTold) {
    frmMain &window = NewWindow();
    desktop.ExpectMessage(QStringLiteral("Unknown Key mnuNothing"));
    window.SmartMenuXP1_Click(QStringLiteral("mnuNothing"));
    desktop.ExpectMessage(QStringLiteral("Unknow Key NOTHING"));
    window.tlbMain_ButtonClick(QStringLiteral("NOTHING"));
}

TEST_F(Commands, SelectAllByItsKeyLeavesHiddenAndUnselectableItemsOut) {
    frmMain &window = NewWindow();
    diagram::Node &seen = AddNode(window, 0, 0);
    diagram::Node &hidden = AddNode(window, 3000, 0);
    diagram::Node &fixed = AddNode(window, 6000, 0);
    diagram::Link &link = seen.Links().Add(fixed);
    diagram::Link &fromFixed = fixed.Links().Add(seen);
    hidden.SetHidden(true);
    fixed.SetSelectable(false);
    Press(window, QStringLiteral("Ctrl+A"));
    EXPECT_TRUE(seen.Selected());
    EXPECT_TRUE(link.Selected());
    EXPECT_FALSE(hidden.Selected());
    EXPECT_FALSE(fixed.Selected());
    EXPECT_FALSE(fromFixed.Selected());
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditUnSelectAll"));
    EXPECT_FALSE(seen.Selected());
    EXPECT_FALSE(link.Selected());
}

TEST_F(Commands, UndoAndRedoByTheirKeysLeaveDirtyAlone) {
    frmMain &window = NewWindow();
    {
        const diagram::ActionGroup group(window.CurrentSurface());
        AddNode(window, 0, 0);
    }
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 0);
    Press(window, QStringLiteral("Ctrl+Y"));
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 1);
    EXPECT_FALSE(window.clsSettings().Dirty);
    window.tlbMain_ButtonClick(QStringLiteral("UNDO"));
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 0);
    window.tlbMain_ButtonClick(QStringLiteral("REDO"));
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 1);
}

TEST_F(Commands, EntriesAreDisabledWhileTheyWouldDoNothing) {
    frmMain &window = NewWindow();
    EXPECT_FALSE(Entry(window, QStringLiteral("mnuEditUndo"))->isEnabled());
    EXPECT_FALSE(Entry(window, QStringLiteral("mnuEditCopy"))->isEnabled());
    {
        const diagram::ActionGroup group(window.CurrentSurface());
        AddNode(window, 0, 0).SetSelected(true);
    }
    ProcessEvents();
    EXPECT_TRUE(Entry(window, QStringLiteral("mnuEditUndo"))->isEnabled());
    EXPECT_TRUE(Entry(window, QStringLiteral("mnuEditCopy"))->isEnabled());
    EXPECT_FALSE(Entry(window, QStringLiteral("mnuEditRedo"))->isEnabled());
}

TEST_F(Commands, PastedNodesHaveFreshKeysAndAreAloneSelectedInOneStepOfUndo) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 100, 100, QStringLiteral("Idea"));
    node.SetKey(QStringLiteral("{old}"));
    node.SetSelected(true);
    Press(window, QStringLiteral("Ctrl+C"));
    Press(window, QStringLiteral("Ctrl+V"));
    ASSERT_EQ(window.CurrentSurface().Nodes().Count(), 2);
    const diagram::Node &pasted = window.CurrentSurface().Nodes().Item(2);
    EXPECT_EQ(pasted.Text(), QStringLiteral("Idea"));
    EXPECT_FALSE(pasted.Key().isEmpty());
    EXPECT_NE(pasted.Key(), QStringLiteral("{old}"));
    EXPECT_TRUE(pasted.Selected());
    EXPECT_FALSE(node.Selected());
    EXPECT_FALSE(window.clsSettings().Dirty);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 1);
}

TEST_F(Commands, CutGoesThroughTheClipboardIntoAnotherWindow) {
    frmMain &first = NewWindow();
    AddNode(first, 100, 100, QStringLiteral("Idea")).SetSelected(true);
    Press(first, QStringLiteral("Ctrl+X"));
    EXPECT_EQ(first.CurrentSurface().Nodes().Count(), 0);
    frmMain &second = NewWindow();
    Press(second, QStringLiteral("Ctrl+V"));
    ASSERT_EQ(second.CurrentSurface().Nodes().Count(), 1);
    EXPECT_EQ(second.CurrentSurface().Nodes().Item(1).Text(), QStringLiteral("Idea"));
}

TEST_F(Commands, InATextBoxTheClipboardCommandsServeTheText) {
    frmMain &window = NewWindow();
    AddNode(window, 100, 100).SetSelected(true);
    auto *box = new QLineEdit(QStringLiteral("words"), window.centralWidget());
    box->show();
    box->setFocus();
    box->selectAll();
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditCopy"));
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("words"));
    EXPECT_TRUE(box->hasFocus());
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditCut"));
    EXPECT_TRUE(box->text().isEmpty());
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditPaste"));
    EXPECT_EQ(box->text(), QStringLiteral("words"));
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 1);
}

TEST_F(Commands, AnotherCommandKeepsTheTextThatIsBeingTyped) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 300, 300, QStringLiteral("old"));
    node.SetSelected(true);
    ASSERT_TRUE(window.CurrentView().BeginEdit());
    QTest::keySequence(QApplication::focusWidget(), QKeySequence(QStringLiteral("Ctrl+A")));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("new"));
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewZoom100"));
    EXPECT_FALSE(window.CurrentView().IsEditing());
    EXPECT_EQ(node.Text(), QStringLiteral("new"));
}

TEST_F(Commands, CopyToClipboardPutsAPictureThere) {
    frmMain &window = NewWindow();
    AddNode(window, 0, 0);
    QApplication::clipboard()->clear();
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditCopyClipboard"));
    EXPECT_FALSE(QApplication::clipboard()->image().isNull());
    EXPECT_FALSE(QApplication::clipboard()->mimeData()->data(QStringLiteral("image/x-emf")).isEmpty());
}

TEST_F(Commands, ExportAsPictureWritesAMetafileWhereTheUserSays) {
    frmMain &window = NewWindow();
    AddNode(window, 0, 0);
    const QString path = MapFile(QStringLiteral("map.wmf"));
    desktop.ExpectSaveFile(path);
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileExportPicture"));
    EXPECT_TRUE(support::ReadWholeFile(path).startsWith("\xD7\xCD\xC6\x9A"));
    ASSERT_EQ(desktop.dialogs.shownFiles.size(), 1u);
    EXPECT_EQ(
        desktop.dialogs.shownFiles[0].filter,
        QStringLiteral("Windows Meta File|*.wmf|PNG Picture|*.png|SVG Drawing|*.svg|PDF Document|*.pdf"));
    EXPECT_EQ(desktop.dialogs.shownFiles[0].filterRow, 1);
    EXPECT_EQ(desktop.dialogs.shownFiles[0].defaultExtension, QStringLiteral("wmf"));
    EXPECT_EQ(desktop.dialogs.shownFiles[0].flags & 2050, 2050);
    desktop.ExpectSaveFile(QString());
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileExportPicture"));
}

TEST_F(Commands, GridAndSnapFollowTheirEntriesOnTheCurrentSurfaceAlone) {
    frmMain &window = NewWindow();
    window.DoOpen(SavedMap(QStringLiteral("plan.map"), 1, 2), false);
    ProcessEvents();
    Press(window, QStringLiteral("Ctrl+G"));
    EXPECT_TRUE(window.AddFlow1()[0].GridLines());
    EXPECT_FALSE(window.AddFlow1()[1].GridLines());
    Entry(window, QStringLiteral("mnuViewSnapGrid"))->trigger();
    EXPECT_TRUE(window.AddFlow1()[0].Screen().SnapToGrid());
    window.TabStrip().SetTheTab(1);
    ProcessEvents();
    EXPECT_FALSE(window.MenuValue(QStringLiteral("mnuViewGrid")));
    window.TabStrip().SetTheTab(0);
    ProcessEvents();
    EXPECT_TRUE(window.MenuValue(QStringLiteral("mnuViewGrid")));
    Press(window, QStringLiteral("Ctrl+G"));
    EXPECT_FALSE(window.AddFlow1()[0].GridLines());
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(Commands, ZoomCommandsSetBothZooms) {
    frmMain &window = NewWindow();
    const std::pair<const char *, int> rows[] = {
        {"mnuViewZoom150", 150}, {"mnuViewZoom75", 75}, {"mnuViewZoomFit", 0}, {"mnuViewZoom100", 100}};
    for (const auto &[key, percent] : rows) {
        window.SmartMenuXP1_Click(QLatin1String(key));
        EXPECT_EQ(window.CurrentSurface().xZoom(), percent);
        EXPECT_EQ(window.CurrentSurface().yZoom(), percent);
    }
}

TEST_F(Commands, ZoomKeysStepUpAndDownAndBackToNormal) {
    frmMain &window = NewWindow();
    Press(window, QStringLiteral("Ctrl++"));
    EXPECT_DOUBLE_EQ(window.CurrentView().ShownZoom(), 110);
    Press(window, QStringLiteral("Ctrl+-"));
    Press(window, QStringLiteral("Ctrl+-"));
    EXPECT_DOUBLE_EQ(window.CurrentView().ShownZoom(), 90);
    Press(window, QStringLiteral("Ctrl+0"));
    EXPECT_DOUBLE_EQ(window.CurrentView().ShownZoom(), 100);
}

TEST_F(Commands, BackgroundColourIsKeptWhenTheDialogIsCancelled) {
    frmMain &window = NewWindow();
    desktop.ExpectColour(0x332211);
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewBackgroundColor"));
    EXPECT_EQ(window.CurrentSurface().BackColor(), 0x332211);
    desktop.ExpectColour(support::kNoColour);
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewBackgroundColor"));
    EXPECT_EQ(window.CurrentSurface().BackColor(), 0x332211);
}

TEST_F(Commands, BackgroundPictureComesFromAFileAndGoesWithClear) {
    frmMain &window = NewWindow();
    const QString path = MapFile(QStringLiteral("ground.bmp"));
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::green);
    ASSERT_TRUE(image.save(path));
    desktop.ExpectOpenFile(path);
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewBackgroundPicture"));
    EXPECT_FALSE(window.CurrentSurface().Picture().IsNull());
    ASSERT_EQ(desktop.dialogs.shownFiles.size(), 1u);
    EXPECT_EQ(desktop.dialogs.shownFiles[0].filter, QStringLiteral("All Picture Files|*.jpg;*.jpeg;*.bmp"));
    EXPECT_EQ(desktop.dialogs.shownFiles[0].flags, 528388);
    window.CurrentSurface().SetBackColor(0x332211);
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewBackgroundClear"));
    EXPECT_TRUE(window.CurrentSurface().Picture().IsNull());
    EXPECT_EQ(window.CurrentSurface().BackColor(), support::kWhite);
}

TEST_F(Commands, TheStartupEntryIsStoredAndTickedInEveryWindow) {
    frmMain &first = NewWindow();
    frmMain &second = NewWindow();
    EXPECT_TRUE(first.MenuValue(QStringLiteral("mnuViewStartup")));
    Entry(second, QStringLiteral("mnuViewStartup"))->trigger();
    EXPECT_FALSE(first.MenuValue(QStringLiteral("mnuViewStartup")));
    EXPECT_FALSE(settings::GetStartupEnabled());
    EXPECT_FALSE(NewWindow().MenuValue(QStringLiteral("mnuViewStartup")));
}

TEST_F(Commands, AboutIsShownAsAForm) {
    frmMain &window = NewWindow();
    desktop.ExpectForm<AboutForm>();
    window.SmartMenuXP1_Click(QStringLiteral("mnuHelpAbout"));
}

TEST_F(Commands, ExitClosesThisWindowAlone) {
    frmMain &first = NewWindow();
    frmMain &second = NewWindow();
    second.SmartMenuXP1_Click(QStringLiteral("mnuFileExit"));
    ProcessEvents();
    EXPECT_EQ(frmMain::Forms(), std::vector<frmMain *>{&first});
}

TEST_F(Commands, CutCopyAndDeleteFollowTheFocusIntoTextBoxes) {
    frmMain &window = NewWindow();
    const auto expect = [&](bool enabled) {
        ProcessEvents();
        for (const char *key : {"mnuEditCut", "mnuEditCopy"})
            EXPECT_EQ(Entry(window, QLatin1String(key))->isEnabled(), enabled) << key;
    };
    expect(false);
    for (const char *box : {"cboFont", "cboFontSize"}) {
        window.findChild<QWidget *>(QLatin1String(box))->setFocus();
        expect(true);
        window.CurrentView().setFocus();
        expect(false);
    }
    AddNode(window, 0, 0).SetSelected(true);
    expect(true);
    window.CurrentSurface().UnselectAll();
    window.Find().Open(false);
    expect(true);
    window.menuBar()->setFocus(Qt::MenuBarFocusReason); // as while a menu is open
    expect(true);
    window.Find().Close();
    expect(false);
}

TEST_F(Commands, AFailedCopyAndAPasteThatCantBeDoneSayWhy) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 0, 0);
    node.Links().Add(AddNode(window, 3000, 0)).SetSelected(true);
    QApplication::clipboard()->setText(QStringLiteral("kept"));
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditCut"));
    EXPECT_EQ(Status(window),
              QStringLiteral("A Link is copied with the Nodes at both its ends: select these too."));
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("kept"));
    EXPECT_EQ(window.CurrentSurface().Links().size(), 1u);
    QApplication::clipboard()->clear();
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditPaste"));
    EXPECT_EQ(Status(window), QStringLiteral("The clipboard holds nothing that can be pasted here."));
    EXPECT_FALSE(window.CurrentSurface().CanUndo());
}

TEST_F(Commands, HelpAndWebsiteAreOpenedByTheirPrograms) {
    frmMain &window = NewWindow();
    desktop.ExpectLaunch(QDir(support::ProgramPath()).filePath(QStringLiteral("help.pdf")));
    Press(window, QStringLiteral("F1"));
    desktop.ExpectAddress(QStringLiteral("https://www.velmora.example/"));
    window.SmartMenuXP1_Click(QStringLiteral("mnuHelpWeb"));
}

TEST_F(Commands, AProgramThatIsMissingIsTold) {
    frmMain &window = NewWindow();
    const QString help = QDir(support::ProgramPath()).filePath(QStringLiteral("help.pdf"));
    desktop.ExpectLaunch(help, false);
    desktop.ExpectMessage(
        QStringLiteral("Cannot Launch Program! \r\nCan not find the following file\r\n'%1'").arg(help));
    window.SmartMenuXP1_Click(QStringLiteral("mnuHelpHelp"));
}

} // namespace mainwindow::testing
