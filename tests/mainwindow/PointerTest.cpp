// Which pointer the window shows: the hourglass while a command works, the normal one when the user's turn
// comes.
#include "diagram/view/SurfaceView.h"
#include "document/DoLoad.h"
#include "support/Error.h"
#include "tests/mainwindow/WindowTest.h"

#include <QStringList>
#include <QTest>
#include <QTimer>

namespace mainwindow::testing {

using document::pointer::kHourglass;
using document::pointer::kNormal;

namespace {

// Dialogs and forms that are all cancelled, and say which pointer the window showed.
class WatchedDialogs : public support::CommonDialogs, public support::DialogHost {
public:
    QString ShowOpenFileDialog(const QString &, const QString &, const QString &, long, support::Owner,
                               int &) override {
        Note("open");
        return {};
    }
    QString ShowSaveFileDialog(const QString &, const QString &, const QString &, long, support::Owner,
                               int &) override {
        Note("save");
        return {};
    }
    support::Colour ShowColorDialog(support::Owner, bool, support::Colour) override {
        Note("colour");
        return support::kNoColour;
    }
    void ShowFontDialog(support::Owner, long, support::FontChoice &, support::Colour &) override {
        Note("font");
    }
    bool ShowPrinter(support::Owner) override {
        Note("printer");
        return false;
    }
    bool ShowModal(const support::FormRequest &request, support::Owner) override {
        Note(request.Form().toUtf8().constData());
        return false;
    }
    const frmMain *window = nullptr;
    QStringList shown; // "what pointer"

private:
    void Note(const char *what) {
        shown << QStringLiteral("%1 %2").arg(QLatin1String(what)).arg(window->MousePointer());
    }
};

class ThrowingBoxes : public support::MessageBoxes {
public:
    support::Answer Show(const QString &, support::Buttons, support::Icon, const QString &,
                         support::EnterPresses) override {
        throw support::Error(5, QString(), QStringLiteral("No box"));
    }
    QString InputBox(const QString &, const QString &, const QString &) override { return {}; }
};

class Pointer : public WindowTest {
protected:
    // A month, so that there is a strip to arrange.
    static void AddMonth(frmMain &window) {
        diagram::Node &month = AddNode(window, 300, 9000, QStringLiteral("May 2024"));
        month.SetMarked(true);
        month.SetSelectable(false);
    }
    // Has the timeline say which pointer it was called with.
    void Watch(frmMain &window) {
        const auto note = [this, &window] { seen.push_back(window.MousePointer()); };
        window.Timeline().ArrangeTimeLineNodes = [note](diagram::Surface &, int) { note(); };
        window.Timeline().ShowHideTimelineNodes = [note](diagram::Surface &, bool) { note(); };
    }
    void Run(frmMain &window, const char *key) { window.SmartMenuXP1_Click(QLatin1String(key)); }
    std::vector<int> seen;
};

} // namespace

TEST_F(Pointer, CommandsWorkUnderTheHourglassAndGiveTheNormalOneBack) {
    frmMain &window = NewWindow();
    AddMonth(window);
    AddNode(window, 300, 300).Links().Add(AddNode(window, 3000, 300));
    Watch(window);
    for (const char *key : {"mnuViewTimeline", "mnuLayoutHExecute", "mnuLayoutTreeExecute"}) {
        seen.clear();
        Run(window, key);
        EXPECT_EQ(seen, std::vector<int>{kHourglass}) << key;
        EXPECT_EQ(window.MousePointer(), kNormal) << key;
    }
}

TEST_F(Pointer, IsTheNormalOneWhereverACommandShowsADialog) {
    WatchedDialogs dialogs;
    const support::Desktop &doors = desktop.Get();
    support::Desktop watched{doors.messageBoxes, dialogs,      doors.launcher, doors.clock,    doors.memory,
                             doors.registry,     doors.random, doors.printers, doors.identity, dialogs};
    support::SetDesktop(&watched);
    frmMain window(watched);
    dialogs.window = &window;
    AddNode(window, 300, 300);
    const char *const keys[] = {"mnuFileOpen",
                                "mnuFileSave",
                                "mnuFileSaveAs",
                                "mnuFileSaveAsTemplate",
                                "mnuFileImport",
                                "mnuFileExport",
                                "mnuFileExportPicture",
                                "mnuFilePageSetup",
                                "mnuFilePrint",
                                "mnuFilePrintPreview",
                                "mnuEditSlicesSlices",
                                "mnuEditProperties",
                                "mnuViewBackgroundColor",
                                "mnuViewBackgroundPicture",
                                "mnuViewDefaultNode",
                                "mnuViewTimelineSetup",
                                "mnuViewLevels",
                                "mnuViewGroups",
                                "mnuLayoutHOptions",
                                "mnuLayoutTreeOptions",
                                "mnuHelpAbout",
                                "keyDate"};
    for (const char *key : keys) {
        dialogs.shown.clear();
        window.CurrentSurface().Nodes().Item(1).SetSelected(true);
        Run(window, key);
        ASSERT_EQ(dialogs.shown.size(), 1) << key;
        EXPECT_TRUE(dialogs.shown.front().endsWith(QStringLiteral(" 0"))) << key;
        EXPECT_EQ(window.MousePointer(), kNormal) << key;
    }
    support::SetDesktop(&desktop.Get());
}

TEST_F(Pointer, StaysTheHourglassAfterACommandThatFails) {
    ThrowingBoxes boxes;
    const support::Desktop &doors = desktop.Get();
    support::Desktop failing{boxes,          doors.dialogs, doors.launcher, doors.clock,    doors.memory,
                             doors.registry, doors.random,  doors.printers, doors.identity, doors.dialogHost};
    frmMain window(failing);
    desktop.ExpectMessageContaining(QStringLiteral("No box"));
    window.SmartMenuXP1_Click(QStringLiteral("mnuNothing"));
    EXPECT_EQ(window.MousePointer(), kHourglass);
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditSelectAll"));
    EXPECT_EQ(window.MousePointer(), kNormal);
}

TEST_F(Pointer, AFileThatCannotBeReadLeavesTheNormalOneThatTheDialogHad) {
    frmMain &window = NewWindow();
    QFile broken(MapFile(QStringLiteral("broken.map")));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("no map");
    broken.close();
    desktop.ExpectMessageContaining(QStringLiteral("3343"));
    desktop.ExpectOpenFile(broken.fileName());
    Run(window, "mnuFileOpen");
    EXPECT_EQ(window.MousePointer(), kNormal);
}

TEST_F(Pointer, ALoadShowsTheHourglassWhileEventsRun) {
    const QString map = SavedMap(QStringLiteral("plan.map"), 1);
    frmMain &window = NewWindow();
    window.Timeline().AdjustLinks = [](diagram::Node &, bool) {};
    QTimer::singleShot(0, &window, [&] { seen.push_back(window.MousePointer()); });
    window.clsSettings().SetDatabase(map);
    document::DoLoad(window);
    EXPECT_EQ(seen, std::vector<int>{kHourglass});
    EXPECT_EQ(window.MousePointer(), kNormal);
}

TEST_F(Pointer, TheFilterWorksUnderTheHourglass) {
    frmMain &window = NewWindow();
    AddMonth(window);
    Watch(window);
    window.ssDBGroups_CloseUp();
    window.ssDBLevels_CloseUp();
    EXPECT_EQ(seen, (std::vector<int>{kHourglass, kHourglass}));
    EXPECT_EQ(window.MousePointer(), kNormal);
}

TEST_F(Pointer, TheHourglassIsSeenOnTheWindowAndOverItsNodes) {
    frmMain &window = NewWindow();
    AddNode(window, 300, 300).SetSelected(true);
    ProcessEvents();
    QWidget &viewport = *window.CurrentView().viewport();
    const auto hover = [&](const QPointF &at) {
        QTest::mouseMove(&viewport, PixelOf(window, at));
        ProcessEvents();
    };
    hover({6000, 6000});
    hover({300, 300});
    ASSERT_NE(viewport.cursor().shape(), window.cursor().shape()) << "a handle shows a pointer of its own";
    window.SetMousePointer(kHourglass);
    EXPECT_EQ(window.cursor().shape(), Qt::WaitCursor);
    EXPECT_EQ(viewport.cursor().shape(), Qt::WaitCursor);
    window.SetMousePointer(kNormal);
    EXPECT_NE(window.cursor().shape(), Qt::WaitCursor);
    EXPECT_NE(viewport.cursor().shape(), Qt::WaitCursor);
}

} // namespace mainwindow::testing
