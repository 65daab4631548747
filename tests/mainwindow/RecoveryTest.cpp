#include "diagram/view/SurfaceView.h"
#include "document/DefaultNodes.h"
#include "document/DoSave.h"
#include "document/UnsavedWork.h"
#include "mainwindow/edits/HandlerStep.h"
#include "mainwindow/start/LostMapOffers.h"
#include "mainwindow/start/RecoveryBar.h"
#include "mainwindow/start/WindowJournal.h"
#include "recovery/LostMaps.h"
#include "tests/mainwindow/WindowTest.h"

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QPushButton>
#include <QTest>

namespace mainwindow {

using namespace testing;
using support::Answer;

namespace {

class Recovery : public WindowTest {
protected:
    Recovery() { WindowJournal::SetFolder(Root()); }
    ~Recovery() override { WindowJournal::SetFolder(QString()); }

    QString Root() const { return MapFile(QStringLiteral("state")); }
    int Folders() const { return int(QDir(Root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size()); }
    static void Write(frmMain &window) { window.Journal()->Writer().Finish(); }
    // Types in place of the text of what is selected.
    static void Type(frmMain &window, const QString &text) {
        QTest::keyClicks(&window.CurrentView(), text.left(1));
        QTest::keyClicks(QApplication::focusWidget(), text.mid(1));
    }
    // Draws a node and types its text.
    void Draw(frmMain &window, const QString &text, float top = 1500) {
        Drag(window, {1500, top}, {4500, top + 1200});
        Type(window, text);
        ASSERT_TRUE(window.CurrentView().IsEditing());
        window.CurrentView().EndEdit(true);
    }
    // Ends the window without closing it, as when the process is killed.
    void Crash(frmMain &window) { delete &window; }
    // Draws nodes with those texts in a window, which then crashes.
    void Lose(const QStringList &texts, const QString &map = QString()) {
        frmMain &window = NewWindow();
        if (!map.isEmpty()) window.DoOpen(map, false);
        float top = 1500;
        for (const QString &text : texts) {
            Draw(window, text, top);
            Write(window);
            top += 1800;
        }
        Crash(window);
    }
    frmMain &NextStart() {
        frmMain &window = NewWindow();
        window.LostMaps().Add(recovery::FindLostMaps(Root()));
        ProcessEvents();
        return window;
    }
    static void Choose(frmMain &window, OfferAnswer answer, int row = 0) {
        QTest::mouseClick(window.LostMaps().Bar()->Button(row, answer), Qt::LeftButton);
    }
    static QStringList Texts(frmMain &window) {
        QStringList texts;
        for (const int index : window.AddFlow1().Indices())
            for (const diagram::Node &node : window.AddFlow1()[index].Nodes()) texts.append(node.Text());
        return texts;
    }
};

} // namespace

TEST_F(Recovery, AStartAfterNothingWasLostShowsNoBar) {
    frmMain &window = NewWindow();
    Draw(window, QStringLiteral("a"));
    Write(window);
    EXPECT_EQ(Folders(), 1);
    desktop.ExpectMessage("Save Changes?", Answer::No);
    window.close();
    ProcessEvents();
    EXPECT_EQ(Folders(), 0);
    EXPECT_EQ(NextStart().LostMaps().Bar(), nullptr);
}

TEST_F(Recovery, ALostMapIsOfferedAboveTheSurfaceWithNameTimeAndChanges) {
    Lose({QStringLiteral("one"), QStringLiteral("two")}, SavedMap(QStringLiteral("Plan.map"), 1));
    frmMain &window = NextStart();
    RecoveryBar *bar = window.LostMaps().Bar();
    ASSERT_TRUE(bar && bar->isVisible());
    EXPECT_TRUE(bar->Text(0).startsWith(QStringLiteral("Plan.map: 2 changes, ")));
    EXPECT_TRUE(bar->Text(0).contains(QLocale().toString(QDate::currentDate(), QLocale::ShortFormat)));
    EXPECT_LE(bar->geometry().bottom(), window.CurrentView().geometry().top());
    EXPECT_GT(window.CurrentView().height(), bar->height());
    EXPECT_FALSE(bar->isAncestorOf(QApplication::focusWidget())); // it takes no focus
    EXPECT_EQ(Texts(window), QStringList());
}

TEST_F(Recovery, RestoreOpensTheMapAsUnsavedWork) {
    const QString map = SavedMap(QStringLiteral("Plan.map"), 0);
    Lose({QStringLiteral("one")}, map);
    frmMain &window = NextStart();
    Choose(window, OfferAnswer::Restore);
    EXPECT_EQ(Texts(window), QStringList{QStringLiteral("one")});
    EXPECT_EQ(window.clsSettings().Database(), map);
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Velmora - Plan.map"));
    EXPECT_FALSE(window.LostMaps().Bar()->isVisible());
    EXPECT_TRUE(window.CurrentView().hasFocus());
    Q_EMIT window.CurrentView().HintShown(diagram::Hint::Nothing); // the pointer enters the surface
    EXPECT_TRUE(Status(window).contains(QStringLiteral("Plan.map was restored")));
    Write(window);
    EXPECT_EQ(Folders(), 1); // its own journal, in place of the restored one
    desktop.ExpectMessage("Save Changes?", Answer::Yes);
    window.close();
    ProcessEvents();
    EXPECT_EQ(Folders(), 0);
    frmMain &again = NewWindow();
    again.DoOpen(map, false);
    EXPECT_EQ(Texts(again), QStringList{QStringLiteral("one")});
}

// An edit right after a save begins a journal of its own, based on the file as it was saved.
TEST_F(Recovery, ASaveEndsTheJournalBeforeTheNextEdit) {
    const QString map = SavedMap(QStringLiteral("Plan.map"), 1);
    frmMain &window = NewWindow();
    window.DoOpen(map, false);
    const auto edit = [&] {
        const HandlerStep step(window.CurrentSurface());
        AddNode(window, 3000, 3000, QStringLiteral("later"));
    };
    edit();
    Write(window);
    ASSERT_EQ(window.Journal()->Writer().Changes(), 1);
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(window.Journal()->Writer().Changes(), 0);
    edit();
    Write(window);
    EXPECT_EQ(window.Journal()->Writer().Changes(), 1);
    document::MarkSaved(window);
    window.clsSettings().Dirty = false;
}

TEST_F(Recovery, AMapThatWasNeverSavedComesBackUntitled) {
    Lose({QStringLiteral("new")});
    frmMain &window = NextStart();
    EXPECT_TRUE(window.LostMaps().Bar()->Text(0).startsWith(QStringLiteral("Untitled: 1 change, ")));
    Choose(window, OfferAnswer::Restore);
    EXPECT_EQ(window.clsSettings().Database(), QString());
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Untitled - Velmora"));
    EXPECT_TRUE(window.clsSettings().Dirty);
}

TEST_F(Recovery, AWindowWithNothingButItsDefaultNodesTakesTheMap) {
    Lose({QStringLiteral("one")});
    frmMain &window = NextStart();
    document::LocateTemplateNode(window.CurrentSurface(), true);
    document::MarkSaved(window);
    const std::size_t windows = frmMain::Forms().size();
    Choose(window, OfferAnswer::Restore);
    EXPECT_EQ(frmMain::Forms().size(), windows);
    EXPECT_TRUE(window.HasUnsavedWork());
}

TEST_F(Recovery, AMapThatIsLostAgainAfterItWasRestoredIsOfferedAgain) {
    Lose({QStringLiteral("one")});
    frmMain &window = NextStart();
    Choose(window, OfferAnswer::Restore);
    Draw(window, QStringLiteral("two"), 4500);
    Write(window);
    Crash(window);
    frmMain &next = NextStart();
    ASSERT_EQ(next.LostMaps().Bar()->Count(), 1);
    Choose(next, OfferAnswer::Restore);
    EXPECT_EQ(Texts(next), (QStringList{QStringLiteral("one"), QStringLiteral("two")}));
}

TEST_F(Recovery, AMapThatTheUserHasOpenedAlreadyTakesUpItsWorkInTheSameWindow) {
    const QString map = SavedMap(QStringLiteral("Plan.map"), 0);
    Lose({QStringLiteral("one")}, map);
    frmMain &window = NextStart();
    window.DoOpen(map, false);
    Choose(window, OfferAnswer::Restore);
    EXPECT_EQ(Texts(window), QStringList{QStringLiteral("one")});
    EXPECT_EQ(frmMain::Forms().size(), 1u);
}

TEST_F(Recovery, AMapIsRestoredInANewWindowWhereItWouldCoverAnother) {
    Lose({QStringLiteral("lost")});
    frmMain &window = NextStart();
    Draw(window, QStringLiteral("newer"), 6000);
    Choose(window, OfferAnswer::Restore);
    EXPECT_EQ(Texts(window), QStringList{QStringLiteral("newer")});
    ASSERT_EQ(frmMain::Forms().size(), 2u);
    EXPECT_EQ(Texts(*frmMain::Forms().back()), QStringList{QStringLiteral("lost")});
}

TEST_F(Recovery, SeveralMapsAreAnsweredOneByOne) {
    Lose({QStringLiteral("first")});
    Lose({QStringLiteral("second")});
    frmMain &window = NextStart();
    RecoveryBar *bar = window.LostMaps().Bar();
    ASSERT_EQ(bar->Count(), 2);
    const int height = bar->height();
    Choose(window, OfferAnswer::Restore, 1); // the older
    EXPECT_EQ(Texts(window), QStringList{QStringLiteral("first")});
    EXPECT_EQ(bar->Count(), 1);
    EXPECT_LT(bar->height(), height);
    EXPECT_TRUE(bar->isVisible());
    Choose(window, OfferAnswer::Restore, 0);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_EQ(Texts(*frmMain::Forms().back()), QStringList{QStringLiteral("second")});
}

TEST_F(Recovery, ShowLaterOffersItAgainAtTheNextStartAlone) {
    Lose({QStringLiteral("a")});
    frmMain &window = NextStart();
    Choose(window, OfferAnswer::Later);
    EXPECT_FALSE(window.LostMaps().Bar()->isVisible());
    EXPECT_EQ(Texts(window), QStringList());
    Crash(window);
    frmMain &next = NextStart();
    Choose(next, OfferAnswer::Restore);
    EXPECT_EQ(Texts(next), QStringList{QStringLiteral("a")});
}

TEST_F(Recovery, AnOfferThatWasNotAnsweredStays) {
    Lose({QStringLiteral("a")});
    frmMain &window = NextStart();
    window.close();
    ProcessEvents();
    EXPECT_EQ(NextStart().LostMaps().Bar()->Count(), 1);
}

TEST_F(Recovery, DiscardAsksAndThrowsAway) {
    Lose({QStringLiteral("a")});
    frmMain &window = NextStart();
    desktop.ExpectMessageContaining(QStringLiteral("Discard the changes of Untitled"), Answer::No);
    Choose(window, OfferAnswer::Discard);
    EXPECT_EQ(desktop.Messages().back().enter, support::EnterPresses::No);
    EXPECT_EQ(window.LostMaps().Bar()->Count(), 1);
    desktop.ExpectMessageContaining(QStringLiteral("Discard the changes of Untitled"), Answer::Yes);
    Choose(window, OfferAnswer::Discard);
    EXPECT_FALSE(window.LostMaps().Bar()->isVisible());
    EXPECT_EQ(Folders(), 0);
}

TEST_F(Recovery, TheBarIsReachedByKeysAndNamedForAScreenReader) {
    Lose({QStringLiteral("a")});
    frmMain &window = NextStart();
    RecoveryBar *bar = window.LostMaps().Bar();
    QTest::keyClick(&window, Qt::Key_P, Qt::AltModifier);
    QPushButton *restore = bar->Button(0, OfferAnswer::Restore);
    EXPECT_TRUE(restore->hasFocus());
    EXPECT_EQ(bar->accessibleName(), QStringLiteral("Changes that were not saved"));
    EXPECT_EQ(restore->accessibleName(), QStringLiteral("Restore: Untitled"));
    EXPECT_EQ(bar->Button(0, OfferAnswer::Later)->accessibleName(), QStringLiteral("Show later: Untitled"));
    EXPECT_EQ(bar->Button(0, OfferAnswer::Discard)->accessibleName(), QStringLiteral("Discard: Untitled"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(bar->Button(0, OfferAnswer::Later)->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(window.CurrentView().hasFocus());
    EXPECT_TRUE(bar->isVisible());
    QTest::keyClick(&window, Qt::Key_P, Qt::AltModifier);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Texts(window), QStringList{QStringLiteral("a")});
}

TEST_F(Recovery, ATextThatIsBeingTypedIsKept) {
    frmMain &window = NewWindow();
    Drag(window, {1500, 1500}, {4500, 2700});
    Type(window, QStringLiteral("half a sen"));
    ASSERT_TRUE(window.CurrentView().IsEditing());
    Write(window);
    EXPECT_TRUE(window.CurrentView().IsEditing()); // still
    Crash(window);
    frmMain &next = NextStart();
    Choose(next, OfferAnswer::Restore);
    EXPECT_EQ(Texts(next), QStringList{QStringLiteral("half a sen")});
}

TEST_F(Recovery, SlicesThatAreInsertedAndDeletedAreKept) {
    frmMain &window = NewWindow();
    Draw(window, QStringLiteral("stays"));
    Write(window);
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Second"));
    window.DoInsertSlice();
    Write(window);
    Crash(window);
    frmMain &next = NextStart();
    Choose(next, OfferAnswer::Restore);
    EXPECT_EQ(next.TabStrip().TabCount(), 2);
    EXPECT_EQ(Texts(next), QStringList{QStringLiteral("stays")});
}

TEST_F(Recovery, ASavedMapLeavesNothingAndNoMapThatIsOnlyOpened) {
    frmMain &window = NewWindow();
    window.DoOpen(SavedMap(QStringLiteral("Plan.map"), 2), false);
    Write(window);
    EXPECT_EQ(Folders(), 0);
    Draw(window, QStringLiteral("a"), 6000);
    Write(window);
    EXPECT_EQ(Folders(), 1);
    ASSERT_TRUE(document::DoSave(window));
    Write(window);
    EXPECT_EQ(Folders(), 0);
    Crash(window);
    EXPECT_EQ(NextStart().LostMaps().Bar(), nullptr);
}

TEST_F(Recovery, UndoingAllLeavesNothingAndWhatMakesNoMapDirtyIsKept) {
    frmMain &window = NewWindow();
    window.DoOpen(SavedMap(QStringLiteral("Plan.map"), 2), false);
    AddNode(window, 6000, 6000, QStringLiteral("not told to the commands"));
    ASSERT_FALSE(window.clsSettings().Dirty);
    Write(window);
    EXPECT_EQ(Folders(), 1);
    {
        diagram::Surface &surface = window.CurrentSurface();
        surface.Remove(surface.Nodes().Item(3));
        ASSERT_TRUE(document::DoSave(window));
        surface.BeginAction(0);
        surface.Nodes().Item(1).SetText(QStringLiteral("other"));
        surface.EndAction();
        Write(window);
        EXPECT_EQ(Folders(), 1);
        surface.Undo();
    }
    Write(window);
    EXPECT_EQ(Folders(), 0);
}

TEST_F(Recovery, AFolderThatCannotBeWrittenIsToldInTheStatusBar) {
    QFile inTheWay(Root());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    inTheWay.close();
    frmMain &window = NewWindow();
    Draw(window, QStringLiteral("a"));
    Write(window);
    ProcessEvents();
    EXPECT_TRUE(Status(window).startsWith(QStringLiteral("What isn't saved would be lost")));
    EXPECT_EQ(Texts(window), QStringList{QStringLiteral("a")});
}

} // namespace mainwindow
