#include "mainwindow/Placement.h"
#include "support/RegistryStore.h"
#include "tests/mainwindow/WindowTest.h"

#include <QWidget>

namespace mainwindow::testing {

using Placement = WindowTest;

namespace {

// Counts the writes.
class CountingStore : public support::MemoryRegistryStore {
public:
    bool WriteAll(support::RegistryRoot root, const QString &path,
                  const support::RegistryValues &values) override {
        ++writes;
        return support::MemoryRegistryStore::WriteAll(root, path, values);
    }
    int writes = 0;
};

} // namespace

TEST_F(Placement, AWindowWithoutAStoredStateStartsMaximised) { EXPECT_TRUE(NewWindow().isMaximized()); }

TEST_F(Placement, NormalStateComesBackWhereItWas) {
    Store(QStringLiteral("WindowState"), kStateNormal);
    Store(QStringLiteral("Left"), 40);
    Store(QStringLiteral("Top"), 30);
    Store(QStringLiteral("Width"), 500);
    Store(QStringLiteral("Height"), 400);
    frmMain &window = NewWindow();
    EXPECT_FALSE(window.isMaximized());
    EXPECT_EQ(window.pos(), QPoint(40, 30));
    EXPECT_EQ(window.size(), QSize(500, 400));
}

TEST_F(Placement, ASecondWindowDoesNotCoverTheFirst) {
    Store(QStringLiteral("WindowState"), kStateNormal);
    Store(QStringLiteral("Left"), 40);
    Store(QStringLiteral("Top"), 30);
    const frmMain &first = NewWindow();
    const frmMain &second = NewWindow();
    EXPECT_GT(second.x(), first.x());
    EXPECT_GT(second.y(), first.y());
}

TEST_F(Placement, ClosingStoresStateAndPlace) {
    frmMain &window = NewWindow();
    window.showNormal();
    window.move(20, 25);
    window.resize(520, 410);
    ProcessEvents();
    window.close();
    EXPECT_EQ(Stored(QStringLiteral("WindowState")), kStateNormal);
    EXPECT_EQ(Stored(QStringLiteral("Left")), 20);
    EXPECT_EQ(Stored(QStringLiteral("Top")), 25);
    EXPECT_EQ(Stored(QStringLiteral("Width")), 520);
    EXPECT_EQ(Stored(QStringLiteral("Height")), 410);
}

TEST_F(Placement, AMaximisedWindowStoresItsPlaceToo) {
    NewWindow().close();
    EXPECT_EQ(Stored(QStringLiteral("WindowState")), kStateMaximised);
    EXPECT_GT(Stored(QStringLiteral("Width")), 0);
    EXPECT_GT(Stored(QStringLiteral("Height")), 0);
    EXPECT_NE(Stored(QStringLiteral("Left")), kAbsent);
    EXPECT_NE(Stored(QStringLiteral("Top")), kAbsent);
}

TEST_F(Placement, IsWrittenAtOnce) {
    CountingStore store;
    WritePlacement(store, QWidget());
    EXPECT_EQ(store.writes, 1);
    EXPECT_EQ(store.Values(support::RegistryRoot::CurrentUser, QStringLiteral("SOFTWARE\\Velmora")).size(),
              5);
}

TEST_F(Placement, AMinimisedWindowLeavesWhatIsStored) {
    Store(QStringLiteral("WindowState"), kStateNormal);
    Store(QStringLiteral("Left"), 11);
    frmMain &window = NewWindow();
    window.setWindowState(Qt::WindowMinimized);
    ProcessEvents();
    window.close();
    EXPECT_EQ(Stored(QStringLiteral("WindowState")), kStateNormal);
    EXPECT_EQ(Stored(QStringLiteral("Left")), 11);
    EXPECT_EQ(Stored(QStringLiteral("Width")), kAbsent);
}

TEST_F(Placement, ANegativePlaceSurvivesTheRegistry) {
    Store(QStringLiteral("Left"), -40);
    EXPECT_EQ(Stored(QStringLiteral("Left")), -40);
}

TEST(FitOnScreen, MovesAndShrinksWhatTheScreenDoesNotShow) {
    const QRect screen(0, 0, 1000, 800);
    EXPECT_EQ(FitOnScreen(QRect(100, 100, 400, 300), screen), QRect(100, 100, 400, 300));
    EXPECT_EQ(FitOnScreen(QRect(3000, -500, 400, 300), screen), QRect(600, 0, 400, 300));
    EXPECT_EQ(FitOnScreen(QRect(-50, -50, 4000, 3000), screen), screen);
    EXPECT_EQ(FitOnScreen(QRect(10, 10, 1, 1), screen).size(), QSize(200, 200));
}

} // namespace mainwindow::testing
