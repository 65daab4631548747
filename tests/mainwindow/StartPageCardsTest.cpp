// What the start page shows, and what its cards do.
#include "mainwindow/start/StartupSetting.h"
#include "tests/mainwindow/StartPageTest.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QScrollBar>
#include <QToolButton>

namespace mainwindow::testing {

namespace {
struct StartPageCards : StartPages {};
} // namespace

TEST_F(StartPageCards, WithoutRecentMapsItSaysSo) {
    frmMain &window = Started();
    EXPECT_TRUE(Cards(window, "startMap").isEmpty());
    int hints = 0;
    for (const QLabel *label : PageOf(window).findChildren<QLabel *>())
        hints += label->isVisible() && label->text().startsWith(QStringLiteral("What you open or save"));
    EXPECT_EQ(hints, 1);
}

TEST_F(StartPageCards, ARecentMapOpensInTheWindow) {
    Recent(QStringLiteral("one.map"));
    const QString two = Recent(QStringLiteral("two.map"), 2);
    frmMain &window = Started();
    ASSERT_EQ(Cards(window, "startMap").size(), 2);
    EXPECT_EQ(Card(window, "startMap").Text().title, QStringLiteral("two"));
    EXPECT_EQ(Card(window, "startMap").Text().tip, two);
    Click(Card(window, "startMap"));
    EXPECT_EQ(window.clsSettings().Database(), two);
    EXPECT_EQ(window.Start().Page(), nullptr);
    EXPECT_EQ(frmMain::Forms().size(), 1u);
}

TEST_F(StartPageCards, OfTenMapsTheLastEightHaveCards) {
    for (int map = 0; map < 10; ++map) Recent(QStringLiteral("%1.map").arg(map));
    frmMain &window = Started();
    ASSERT_EQ(Cards(window, "startMap").size(), 8);
    EXPECT_EQ(Card(window, "startMap").Text().title, QStringLiteral("9"));
}

TEST_F(StartPageCards, MapsGetTheirPicturesAndADamagedOneNone) {
    const QString damaged = Recent(QStringLiteral("damaged.map"));
    QFile file(damaged);
    ASSERT_TRUE(file.resize(file.size() / 2));
    Recent(QStringLiteral("whole.map"));
    frmMain &window = Started();
    ASSERT_EQ(Cards(window, "startMap").size(), 2);
    const StartCard &whole = *Cards(window, "startMap")[0], &cut = *Cards(window, "startMap")[1];
    EXPECT_TRUE(QTest::qWaitFor([&] { return !whole.Picture().isNull(); }));
    ProcessEvents();
    EXPECT_EQ(whole.Picture().size(), StartPage::kMapPicture * window.devicePixelRatioF());
    EXPECT_TRUE(cut.Picture().isNull());
    EXPECT_TRUE(desktop.Messages().empty());
}

TEST_F(StartPageCards, AMapThatIsGoneIsShownAsSuchAndCanBeTakenOffTheList) {
    const QString gone = Recent(QStringLiteral("gone.map"));
    Recent(QStringLiteral("there.map"));
    QFile::remove(gone);
    frmMain &window = Started();
    StartCard &card = *Cards(window, "startMap")[1];
    EXPECT_EQ(card.Text().note, QStringLiteral("Not there any more"));
    EXPECT_TRUE(card.RemoveButton()->isVisible());
    EXPECT_FALSE(Cards(window, "startMap")[0]->RemoveButton()->isVisible()) << "until it is pointed at";
    Click(card);
    EXPECT_EQ(Status(window), QStringLiteral("gone.map is not there any more."));
    EXPECT_TRUE(window.Start().Page());
    card.RemoveButton()->click();
    ProcessEvents();
    EXPECT_EQ(Cards(window, "startMap").size(), 1);
    EXPECT_NE(settings::clsMRU(desktop.registry).File(1), gone);
    EXPECT_TRUE(settings::clsMRU(desktop.registry).File(2).isEmpty());
}

TEST_F(StartPageCards, DelTakesAMapOffTheListAndTheFocusGoesOn) {
    for (const char *name : {"one.map", "two.map", "three.map"}) Recent(QLatin1String(name));
    frmMain &window = Started();
    Cards(window, "startMap")[1]->setFocus();
    Key(Qt::Key_Delete);
    ASSERT_EQ(Cards(window, "startMap").size(), 2);
    EXPECT_TRUE(Cards(window, "startMap")[1]->hasFocus());
    Key(Qt::Key_Delete);
    EXPECT_TRUE(Cards(window, "startMap")[0]->hasFocus());
    Key(Qt::Key_Delete);
    EXPECT_TRUE(Cards(window, "startMap").isEmpty());
    EXPECT_TRUE(Card(window, "startOpen").hasFocus());
    EXPECT_TRUE(settings::clsMRU(desktop.registry).File(1).isEmpty());
}

TEST_F(StartPageCards, TemplatesOfAllFoldersTakeTurns) {
    Template(QStringLiteral("Plans"), QStringLiteral("Budget.TEM"));
    Template(QStringLiteral("Plans"), QStringLiteral("Launch.TEM"));
    Template(QStringLiteral("Strategy"), QStringLiteral("SWOT.TEM"));
    Template(QStringLiteral("Strategy"), QStringLiteral("lower.tem"));
    frmMain &window = Started();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Cards(window, "startTemplate").size() == 3; }));
    QStringList titles;
    for (const StartCard *card : Cards(window, "startTemplate")) titles << card->Text().title;
    EXPECT_EQ(titles,
              (QStringList{QStringLiteral("Budget"), QStringLiteral("SWOT"), QStringLiteral("Launch")}));
}

TEST_F(StartPageCards, ATemplateFillsTheWindowAndUndoEmptiesIt) {
    Template(QStringLiteral("Plans"), QStringLiteral("Budget.TEM"));
    frmMain &window = Started();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Cards(window, "startTemplate").size() == 1; }));
    Click(Card(window, "startTemplate"));
    EXPECT_EQ(window.Start().Page(), nullptr);
    EXPECT_TRUE(window.clsSettings().Dirty);
    EXPECT_EQ(frmMain::Forms().size(), 1u);
    EXPECT_FALSE(ShowsNothing(window));
    window.CurrentSurface().Undo();
    EXPECT_TRUE(window.CurrentSurface().CanRedo());
}

TEST_F(StartPageCards, ATemplateThatIsGoneIsToldAndThePageStays) {
    const QString file = Template(QStringLiteral("Plans"), QStringLiteral("Budget.TEM"));
    frmMain &window = Started();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Cards(window, "startTemplate").size() == 1; }));
    QFile::remove(file);
    desktop.ExpectMessageContaining(QStringLiteral("Could not find file"));
    Click(Card(window, "startTemplate"));
    EXPECT_TRUE(window.Start().Page());
    EXPECT_TRUE(ShowsNothing(window));
    EXPECT_EQ(window.MousePointer(), document::pointer::kNormal);
}

TEST_F(StartPageCards, TheBoxAndTheEntryKeepTheChoiceInAllWindows) {
    frmMain &first = Started(), &second = Started();
    EXPECT_TRUE(first.MenuValue(QStringLiteral("mnuViewStartPage")));
    EXPECT_TRUE(PageOf(first).ShowsAtStart().isChecked());
    PageOf(first).ShowsAtStart().click();
    EXPECT_FALSE(settings::GetStartPageEnabled());
    EXPECT_FALSE(PageOf(second).ShowsAtStart().isChecked());
    EXPECT_FALSE(second.MenuValue(QStringLiteral("mnuViewStartPage")));
    EXPECT_TRUE(first.Start().Page()) << "this one goes on";
    frmMain &third = NewWindow();
    EXPECT_FALSE(Shows(third));
    EXPECT_FALSE(third.MenuValue(QStringLiteral("mnuViewStartPage")));
    third.findChild<QAction *>(QStringLiteral("mnuViewStartPage"))->trigger();
    ProcessEvents();
    EXPECT_TRUE(settings::GetStartPageEnabled());
    EXPECT_TRUE(third.Start().Page()) << "at once, where the window is empty";
    EXPECT_TRUE(PageOf(second).ShowsAtStart().isChecked());
}

TEST_F(StartPageCards, TheArrowsGoFromCardToCardAndEnterPresses) {
    for (const char *name : {"one.map", "two.map", "three.map"}) Recent(QLatin1String(name));
    frmMain &window = Started();
    window.resize(1340, 700);
    ProcessEvents();
    EXPECT_TRUE(Card(window, "startNew").hasFocus());
    Key(Qt::Key_Down);
    EXPECT_TRUE(Card(window, "startOpen").hasFocus());
    Key(Qt::Key_Down);
    EXPECT_TRUE(Card(window, "startOpen").hasFocus()) << "there is nothing below it";
    Key(Qt::Key_Right);
    EXPECT_TRUE(Cards(window, "startMap")[0]->hasFocus());
    Key(Qt::Key_Right);
    EXPECT_TRUE(Cards(window, "startMap")[1]->hasFocus());
    Key(Qt::Key_Left);
    Key(Qt::Key_Left);
    Key(Qt::Key_Up);
    EXPECT_TRUE(Card(window, "startNew").hasFocus());
    Key(Qt::Key_Return);
    EXPECT_EQ(window.Start().Page(), nullptr);
}

TEST_F(StartPageCards, TabGoesThroughAllOfItInReadingOrder) {
    for (const char *name : {"one.map", "two.map"}) Recent(QLatin1String(name));
    Template(QStringLiteral("Plans"), QStringLiteral("Budget.TEM"));
    frmMain &window = Started();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Cards(window, "startTemplate").size() == 1; }));
    PageOf(window).FocusFirst();
    QStringList order;
    for (int step = 0; step < 6; ++step) {
        order << QApplication::focusWidget()->objectName();
        Key(Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(u' '),
              QStringLiteral("startNew startOpen startMap startMap startTemplate chkStartPage"));
}

TEST_F(StartPageCards, EveryCardSaysWhatItIs) {
    Recent(QStringLiteral("plan.map"));
    frmMain &window = Started();
    for (const StartCard *card : PageOf(window).Cards()) {
        EXPECT_FALSE(card->accessibleName().isEmpty());
        EXPECT_TRUE(card->accessibleName().startsWith(card->Text().title));
    }
    EXPECT_TRUE(Card(window, "startMap").accessibleDescription().contains(QStringLiteral("plan.map")));
    EXPECT_FALSE(PageOf(window).accessibleName().isEmpty());
}

TEST_F(StartPageCards, ANarrowWindowHasTheColumnsBelowEachOther) {
    for (int map = 0; map < 4; ++map) Recent(QStringLiteral("%1.map").arg(map));
    frmMain &window = Started();
    StartPage &page = PageOf(window);
    page.resize(480, 300);
    ProcessEvents();
    EXPECT_EQ(page.horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(page.verticalScrollBar()->maximum(), 0);
    EXPECT_GT(Card(window, "startMap").geometry().top(), Card(window, "startOpen").geometry().bottom());
    page.resize(1100, 600);
    ProcessEvents();
    EXPECT_GT(Card(window, "startMap").geometry().left(), Card(window, "startOpen").geometry().right());
    EXPECT_EQ(Cards(window, "startMap")[2]->geometry().top(), Card(window, "startMap").geometry().top());
}

TEST_F(StartPageCards, ATabThatIsClickedLeavesItOnTop) {
    frmMain &window = Started();
    window.ClickTab();
    const QPoint middle = window.CurrentView().geometry().center();
    QWidget *there = window.CurrentView().parentWidget()->childAt(middle);
    EXPECT_TRUE(there == &PageOf(window) || PageOf(window).isAncestorOf(there));
}

} // namespace mainwindow::testing
