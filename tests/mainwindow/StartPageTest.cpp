// When a window shows the start page, and what takes it away.
#include "tests/mainwindow/StartPageTest.h"

#include <QDialog>

namespace mainwindow::testing {

TEST_F(StartPages, AnEmptyWindowShowsOneAfterItWasPainted) {
    auto *window = new frmMain(desktop.Get());
    window->ShowWindow();
    EXPECT_EQ(window->Start().Page(), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window->Start().Page() != nullptr; }));
    EXPECT_TRUE(PageOf(*window).isVisible());
    EXPECT_EQ(PageOf(*window).geometry(), window->CurrentView().geometry());
}

TEST_F(StartPages, SoDoesASecondWindow) {
    Started();
    EXPECT_TRUE(Started().Start().Page());
    frmMain &first = *frmMain::Forms().front();
    first.SmartMenuXP1_Click(QStringLiteral("mnuFileNew"));
    frmMain &third = *frmMain::Forms().back();
    EXPECT_TRUE(QTest::qWaitFor([&] { return third.Start().Page() != nullptr; }));
}

TEST_F(StartPages, AWindowWithAFileOrWithWorkShowsNone) {
    const QString map = SavedMap(QStringLiteral("plan.map"), 0);
    frmMain &opened = Started();
    opened.DoOpen(map, false);
    ProcessEvents();
    EXPECT_FALSE(Shows(opened)) << "though the map is empty";
    frmMain &used = NewWindow();
    Drag(used, {1500, 1500}, {4500, 3000});
    EXPECT_FALSE(Shows(used));
    used.CurrentSurface().Undo();
    EXPECT_FALSE(Shows(used)) << "something was done";
    frmMain &coloured = NewWindow();
    coloured.CurrentSurface().SetBackColor(0x112233);
    EXPECT_FALSE(Shows(coloured));
}

TEST_F(StartPages, AFormGoesFirst) {
    frmMain &window = Started();
    window.Start().Leave();
    QDialog form(&window);
    form.setModal(true);
    form.show();
    EXPECT_FALSE(Shows(window));
    form.hide();
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.Start().Page() != nullptr; }));
}

TEST_F(StartPages, TheFirstNodeTakesItAway) {
    frmMain &window = Started();
    AddNode(window, 100, 100);
    window.ScheduleUpdate();
    ProcessEvents();
    EXPECT_EQ(window.Start().Page(), nullptr);
    window.CurrentSurface().Nodes().Clear();
    ProcessEvents();
    EXPECT_EQ(window.Start().Page(), nullptr) << "for good";
}

TEST_F(StartPages, ACommandThatMakesANodeTakesItAway) {
    frmMain &window = Started();
    window.tlbFormat_ButtonMenuClick(1);
    ProcessEvents();
    EXPECT_EQ(window.Start().Page(), nullptr);
}

TEST_F(StartPages, APressBesideTheCardsGoesToTheSurface) {
    frmMain &window = Started();
    QWidget &content = *PageOf(window).widget();
    const QPoint at = Beside(content);
    QTest::mouseClick(&content, Qt::LeftButton, {}, at);
    ProcessEvents();
    EXPECT_EQ(window.Start().Page(), nullptr);
    EXPECT_TRUE(window.CurrentView().hasFocus());
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 0);
}

TEST_F(StartPages, ADragThatBeginsBesideTheCardsDraws) {
    frmMain &window = Started();
    const int before = window.CurrentSurface().Nodes().Count();
    QWidget &content = *PageOf(window).widget();
    const QPoint from = Beside(content), to = from - QPoint(150, 100);
    const QPoint drawn = window.CurrentView().viewport()->mapFromGlobal(content.mapToGlobal(to));
    EXPECT_EQ(DragOn(content, from, to), window.CurrentView().viewport()) << "nothing covers the drawing";
    EXPECT_EQ(window.Start().Page(), nullptr);
    ASSERT_EQ(window.CurrentSurface().Nodes().Count(), before + 1);
    const diagram::Node &node = *window.CurrentSurface().SelectedNode();
    EXPECT_NEAR(window.CurrentView().FromSurface(node.Bounds().topLeft()).x(), drawn.x(), 3);
    EXPECT_NEAR(window.CurrentView().FromSurface(node.Bounds().topLeft()).y(), drawn.y(), 3);
    EXPECT_NEAR(node.Bounds().width() / 15, 150, 6);
}

TEST_F(StartPages, ADragThatBeginsOnACardDrawsAndOpensNothing) {
    Recent(QStringLiteral("plan.map"));
    frmMain &window = Started();
    const int before = window.CurrentSurface().Nodes().Count();
    StartCard &card = Card(window, "startMap");
    EXPECT_EQ(DragOn(card, QPoint(20, 20), QPoint(170, 120)), window.CurrentView().viewport());
    EXPECT_EQ(window.Start().Page(), nullptr);
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), before + 1);
    EXPECT_TRUE(window.clsSettings().Database().isEmpty());
}

TEST_F(StartPages, ThePageDoesNotComeInTheMiddleOfADrag) {
    frmMain &window = NewWindow();
    window.Start().Leave();
    window.Start().Offer();
    QTest::mousePress(window.CurrentView().viewport(), Qt::LeftButton, {}, QPoint(100, 100));
    ProcessEvents();
    EXPECT_EQ(window.Start().Page(), nullptr);
    QTest::mouseRelease(window.CurrentView().viewport(), Qt::LeftButton, {}, QPoint(100, 100));
}

TEST_F(StartPages, EscapeTakesItAway) {
    frmMain &window = Started();
    EXPECT_TRUE(PageOf(window).isAncestorOf(QApplication::focusWidget()));
    Key(Qt::Key_Escape);
    EXPECT_EQ(window.Start().Page(), nullptr);
    EXPECT_TRUE(window.CurrentView().hasFocus());
    frmMain &other = Started();
    Press(other, QStringLiteral("Esc"));
    EXPECT_EQ(other.Start().Page(), nullptr) << "on the surface too";
}

TEST_F(StartPages, NewGoesOnWithTheEmptySurface) {
    frmMain &window = Started();
    Click(Card(window, "startNew"));
    EXPECT_EQ(window.Start().Page(), nullptr);
    EXPECT_TRUE(window.CurrentView().hasFocus());
    EXPECT_EQ(frmMain::Forms().size(), 1u);
}

TEST_F(StartPages, OpenAsksForAFile) {
    const QString map = SavedMap(QStringLiteral("plan.map"), 2);
    frmMain &window = Started();
    desktop.ExpectOpenFile(QString());
    Click(Card(window, "startOpen"));
    EXPECT_TRUE(window.Start().Page()) << "nothing was chosen";
    desktop.ExpectOpenFile(map);
    Click(Card(window, "startOpen"));
    EXPECT_EQ(window.Start().Page(), nullptr);
    EXPECT_EQ(window.clsSettings().Database(), map);
}

TEST_F(StartPages, OpeningAFileByTheMenuTakesItAway) {
    const QString map = SavedMap(QStringLiteral("plan.map"), 0);
    frmMain &window = Started();
    desktop.ExpectOpenFile(map);
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileOpen"));
    ProcessEvents();
    EXPECT_EQ(window.Start().Page(), nullptr);
}

} // namespace mainwindow::testing
