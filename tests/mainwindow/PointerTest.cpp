// Which pointer the window shows: the hourglass while a command works, the normal one while it waits for the
// user.
#include "diagram/view/SurfaceView.h"
#include "document/DoLoad.h"
#include "support/Error.h"
#include "support/OtherDoor.h"
#include "tests/mainwindow/FailingBoxes.h"
#include "tests/mainwindow/WindowTest.h"

#include <QStringList>
#include <QTest>
#include <QTimer>

namespace mainwindow::testing {

using document::pointer::kHourglass;
using document::pointer::kNormal;

namespace {

// Cancels all dialogs and forms, and notes which pointer the window showed at each.
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
    QStringList shown; // "dialog pointer", each

private:
    void Note(const char *what) {
        shown << QStringLiteral("%1 %2").arg(QLatin1String(what)).arg(window->MousePointer());
    }
};

class Pointer : public WindowTest {
protected:
    // Adds a strip of a visible and a hidden month, away from where an arrangement puts them. At each change
    // of a month the pointer of the window is noted in `seen`.
    void AddMonths(frmMain &window) {
        for (const char *text : {"May 2024", "June 2024"})
            months.push_back(&AddMonth(window, 300, QLatin1String(text)));
        watch = std::make_unique<WatchedStrip>(window, *this);
        Scatter();
    }
    void Scatter() {
        months.front()->SetLeft(9000);
        months.front()->SetHidden(false);
        months.back()->SetHidden(true);
        seen.clear();
    }
    // All changes of the strip were made under that pointer.
    bool Saw(int pointer) const {
        return !seen.empty() && std::ranges::count(seen, pointer) == std::ssize(seen);
    }
    void Run(frmMain &window, const char *key) { window.SmartMenuXP1_Click(QLatin1String(key)); }
    class WatchedStrip : public diagram::SurfaceObserver {
    public:
        WatchedStrip(frmMain &window, Pointer &test) : window_(window), test_(test) {
            window.CurrentSurface().Observers().Add(*this);
        }
        ~WatchedStrip() override { window_.CurrentSurface().Observers().Remove(*this); }
        void ItemChanged(diagram::Item &item, diagram::Change) override {
            for (const diagram::Node *month : test_.months)
                if (month == &item) test_.seen.push_back(window_.MousePointer());
        }

    private:
        frmMain &window_;
        Pointer &test_;
    };
    std::vector<diagram::Node *> months;
    std::vector<int> seen;
    std::unique_ptr<WatchedStrip> watch;
};

} // namespace

TEST_F(Pointer, CommandsWorkUnderTheHourglassAndGiveTheNormalOneBack) {
    frmMain &window = NewWindow();
    AddNode(window, 300, 300).Links().Add(AddNode(window, 3000, 300));
    AddMonths(window);
    for (const char *key : {"mnuViewTimeline", "mnuLayoutHExecute", "mnuLayoutTreeExecute"}) {
        Scatter();
        Run(window, key);
        EXPECT_TRUE(Saw(kHourglass)) << key;
        EXPECT_EQ(window.MousePointer(), kNormal) << key;
    }
}

TEST_F(Pointer, IsTheNormalOneWhereverACommandShowsADialog) {
    WatchedDialogs dialogs;
    support::Desktop watched = support::WithDoor(desktop.Get(), dialogs);
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
    FailingBoxes boxes;
    support::Desktop failing = support::WithDoor(desktop.Get(), boxes);
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
    QTimer::singleShot(0, &window, [&] { seen.push_back(window.MousePointer()); });
    window.clsSettings().SetDatabase(map);
    document::DoLoad(window);
    EXPECT_EQ(seen, std::vector<int>{kHourglass});
    EXPECT_EQ(window.MousePointer(), kNormal);
}

TEST_F(Pointer, TheFilterWorksUnderTheHourglass) {
    frmMain &window = NewWindow();
    AddMonths(window);
    window.ssDBGroups_CloseUp();
    EXPECT_TRUE(Saw(kHourglass));
    Scatter();
    window.ssDBLevels_CloseUp();
    EXPECT_TRUE(Saw(kHourglass));
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
