// Ctrl+Tab, with Ctrl held over several presses of Tab.
#include "mainwindow/slices/SliceTurns.h"

#include "diagram/view/SurfaceView.h"
#include "tests/mainwindow/HeldKeys.h"
#include "tests/mainwindow/WindowTest.h"

#include <QAction>
#include <QListWidget>
#include <QTest>
#include <QWindow>

namespace mainwindow::testing {

namespace {

using Tabs = std::vector<int>;

class SliceTurning : public WindowTest {
protected:
    SliceTurning() {
        window.DoOpen(SavedMap(QStringLiteral("slices.map"), 1, 4), false);
        for (const int tab : {3, 1, 0, 2}) window.TabStrip().SetTheTab(tab);
        ProcessEvents();
    }
    ~SliceTurning() override { Release(); }
    void Hold() { PressKey(window, Qt::Key_Control, Qt::ControlModifier); }
    void Release() { ReleaseKey(window, Qt::Key_Control); }
    void Tap(Qt::Key key, Qt::KeyboardModifiers held = Qt::ControlModifier) {
        PressKey(window, key, held);
        ReleaseKey(window, key, held);
    }
    void Tab() { Tap(Qt::Key_Tab); }
    void Backtab() { Tap(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier); }
    int Shown() { return window.TabStrip().TheTab(); }

    frmMain &window = NewWindow();
    SliceTurns &turns = window.Turns();
};

} // namespace

TEST_F(SliceTurning, GoesToTheSliceUsedBeforeAndBackWithTheNextPress) {
    EXPECT_EQ(turns.Order(), (Tabs{2, 0, 1, 3}));
    Hold();
    Tab();
    Release();
    EXPECT_EQ(Shown(), 0);
    EXPECT_EQ(turns.Order(), (Tabs{0, 2, 1, 3}));
    Hold();
    Tab();
    Release();
    EXPECT_EQ(Shown(), 2);
    EXPECT_TRUE(window.CurrentView().hasFocus());
}

TEST_F(SliceTurning, GoesFurtherWhileCtrlIsHeldAndThenOnlyTheLastOneCounts) {
    Hold();
    Tab();
    Tab();
    EXPECT_EQ(Shown(), 1);
    Tab();
    EXPECT_EQ(Shown(), 3);
    Tab();
    EXPECT_EQ(Shown(), 2) << "round and round";
    Tab();
    Tab();
    Release();
    EXPECT_EQ(Shown(), 1);
    EXPECT_EQ(turns.Order(), (Tabs{1, 2, 0, 3}));
}

TEST_F(SliceTurning, GoesBackwardsWithShift) {
    Hold();
    Backtab();
    EXPECT_EQ(Shown(), 3);
    Backtab();
    EXPECT_EQ(Shown(), 1);
    Tab();
    EXPECT_EQ(Shown(), 3);
    Release();
    EXPECT_EQ(turns.Order(), (Tabs{3, 2, 0, 1}));
}

TEST_F(SliceTurning, ListsTheNamesOnceItGoesOnAndTakesTheListAwayWithCtrl) {
    for (int tab = 0; tab < 4; ++tab) {
        window.TabStrip().SetTheTab(tab);
        window.TabStrip().SetCaption(QStringLiteral("Slice & %1").arg(tab));
    }
    Hold();
    Tab();
    EXPECT_EQ(turns.List(), nullptr) << "a short press shows none";
    Tab();
    ASSERT_NE(turns.List(), nullptr);
    EXPECT_TRUE(turns.List()->isVisible());
    ASSERT_EQ(turns.List()->count(), 4);
    EXPECT_EQ(turns.List()->item(0)->text(), QStringLiteral("Slice & 3"));
    EXPECT_EQ(turns.List()->currentRow(), 2);
    EXPECT_FALSE(turns.List()->hasFocus());
    Release();
    EXPECT_EQ(turns.List(), nullptr);
}

TEST_F(SliceTurning, ListsTheNamesWhenCtrlIsHeldForAMoment) {
    Hold();
    Tab();
    EXPECT_TRUE(QTest::qWaitFor([&] { return turns.List() != nullptr; }));
    QTest::mouseClick(turns.List()->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      turns.List()->visualItemRect(turns.List()->item(3)).center());
    EXPECT_EQ(Shown(), 3);
    EXPECT_EQ(turns.List(), nullptr);
    Release();
    EXPECT_EQ(Shown(), 3);
}

TEST_F(SliceTurning, EscapeGoesBackToWhereItBegan) {
    Hold();
    Tab();
    Tab();
    Tap(Qt::Key_Escape);
    EXPECT_EQ(Shown(), 2);
    EXPECT_EQ(turns.List(), nullptr);
    Release();
    EXPECT_EQ(turns.Order(), (Tabs{2, 0, 1, 3}));
}

TEST_F(SliceTurning, EndsWhenTheWindowLosesTheKeyboard) {
    Hold();
    Tab();
    Tab();
    QWindow other;
    other.show();
    other.requestActivate();
    ProcessEvents();
    EXPECT_EQ(turns.List(), nullptr);
    EXPECT_EQ(turns.Order(), (Tabs{1, 2, 0, 3}));
}

TEST_F(SliceTurning, IsOneStepFromTheMenu) {
    auto *entry = window.findChild<QAction *>(QStringLiteral("keyLastSlice"));
    entry->trigger();
    EXPECT_EQ(Shown(), 0);
    entry->trigger();
    EXPECT_EQ(Shown(), 2);
}

TEST_F(SliceTurning, AnotherMapBeginsInTheOrderOfItsSlices) {
    window.Load(SavedMap(QStringLiteral("other.map"), 1, 3));
    EXPECT_EQ(turns.Order(), (Tabs{0, 1, 2}));
}

TEST_F(SliceTurning, SlicesThatWereNeverUsedStandBehindAndOneAloneStays) {
    frmMain &other = NewWindow();
    other.Turns().Turn(1);
    EXPECT_EQ(other.TabStrip().TheTab(), 0);
    other.AddFlow1().Load(1);
    other.AddFlow1().Load(2);
    other.TabStrip().SetTabCount(3);
    EXPECT_EQ(other.Turns().Order(), (Tabs{0, 1, 2}));
    other.TabStrip().SetTheTab(2);
    other.TabStrip().SetTabCount(2);
    EXPECT_EQ(other.Turns().Order(), (Tabs{1, 0})) << "the one that went is passed over";
}

} // namespace mainwindow::testing
