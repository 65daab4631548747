// When a window shows the start page, and what takes it away.
#include "mainwindow/StartPage.h"
#include "app/settings/clsMRU.h"
#include "app/settings/DeliveredFiles.h"
#include "app/settings/GetSet.h"
#include "app/settings/Settings.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/SmartMenu.h"
#include "mainwindow/StartCard.h"
#include "mainwindow/StartOffer.h"
#include "mainwindow/StartupSetting.h"
#include "templates/SaveAsTemplate.h"
#include "tests/mainwindow/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>

namespace mainwindow::testing {

namespace {

struct StartPages : WindowTest {
    StartPages() {
        settings::ProductTerms terms = settings::Terms();
        terms.TEMPLATE = QStringLiteral("TEM");
        settings::SetTerms(terms);
    }
    // A window with its page.
    frmMain &Started() {
        frmMain &window = NewWindow();
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.Start().Page() != nullptr; }));
        ProcessEvents();
        return window;
    }
    // Whether the window shows the page once it was asked to.
    bool Shows(frmMain &window) {
        window.Start().Offer();
        ProcessEvents();
        return window.Start().Page();
    }
    static StartPage &PageOf(frmMain &window) { return *window.Start().Page(); }
    static QList<StartCard *> Cards(frmMain &window, const char *name) {
        return PageOf(window).findChildren<StartCard *>(QLatin1String(name));
    }
    static StartCard &Card(frmMain &window, const char *name) { return *Cards(window, name).at(0); }
    void Click(StartCard &card) {
        QTest::mouseClick(&card, Qt::LeftButton);
        ProcessEvents();
    }
    // Press, moves and release, all to the widget that is pressed, as the window system sends them. What is
    // under the pointer in the middle of it.
    QWidget *DragOn(QWidget &widget, const QPoint &from, const QPoint &to) {
        const QPoint origin = widget.mapToGlobal(QPoint());
        QWidget *window = widget.window();
        const auto send = [&](QEvent::Type type, const QPoint &at, Qt::MouseButton button) {
            QMouseEvent event(type, at, origin + at, button,
                              type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
            QApplication::sendEvent(&widget, &event);
            ProcessEvents();
        };
        send(QEvent::MouseButtonPress, from, Qt::LeftButton);
        send(QEvent::MouseMove, from + (to - from) / 2, Qt::NoButton);
        QWidget *under = window->childAt(window->mapFromGlobal(origin + from));
        send(QEvent::MouseMove, to, Qt::NoButton);
        send(QEvent::MouseButtonRelease, to, Qt::LeftButton);
        return under;
    }
    static QPoint Beside(const QWidget &content) {
        const QPoint at(content.width() / 2, content.height() - 12);
        EXPECT_EQ(content.childAt(at), nullptr);
        return at;
    }
    QString Recent(const QString &name, int nodes = 1) {
        const QString path = SavedMap(name, nodes);
        settings::clsMRU(desktop.registry).AddFile(path);
        return path;
    }
    void Key(Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key);
        ProcessEvents();
    }
    // Beside the program; the folder of bars.
    QString Template(const QString &folder, const QString &name) {
        const QString path = settings::TemplatesFolder() + folder;
        EXPECT_TRUE(QDir().mkpath(path));
        diagram::Surface surface;
        surface.Nodes().Add(0, 0, 2000, 1000).SetText(name);
        frmMain maker(desktop.Get());
        QFile icon(MapFile(QStringLiteral("own.ico")));
        EXPECT_TRUE(icon.open(QIODevice::WriteOnly));
        icon.write(templates::IconFromDrawing(surface));
        icon.close();
        const QString file = QStringLiteral("%1/%2").arg(path, name);
        templates::SaveAsTemplate(maker, surface, icon.fileName(), file);
        return file;
    }
};

} // namespace

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

TEST_F(StartPages, WithoutRecentMapsItSaysSo) {
    frmMain &window = Started();
    EXPECT_TRUE(Cards(window, "startMap").isEmpty());
    int hints = 0;
    for (const QLabel *label : PageOf(window).findChildren<QLabel *>())
        hints += label->isVisible() && label->text().startsWith(QStringLiteral("What you open or save"));
    EXPECT_EQ(hints, 1);
}

TEST_F(StartPages, ARecentMapOpensInTheWindow) {
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

TEST_F(StartPages, OfTenMapsTheLastEightHaveCards) {
    for (int map = 0; map < 10; ++map) Recent(QStringLiteral("%1.map").arg(map));
    frmMain &window = Started();
    ASSERT_EQ(Cards(window, "startMap").size(), 8);
    EXPECT_EQ(Card(window, "startMap").Text().title, QStringLiteral("9"));
}

TEST_F(StartPages, MapsGetTheirPicturesAndADamagedOneNone) {
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

TEST_F(StartPages, AMapThatIsGoneIsShownAsSuchAndCanBeTakenOffTheList) {
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

TEST_F(StartPages, DelTakesAMapOffTheListAndTheFocusGoesOn) {
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

TEST_F(StartPages, TemplatesOfAllFoldersTakeTurns) {
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

TEST_F(StartPages, ATemplateFillsTheWindowAndUndoEmptiesIt) {
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

TEST_F(StartPages, ATemplateThatIsGoneIsToldAndThePageStays) {
    const QString file = Template(QStringLiteral("Plans"), QStringLiteral("Budget.TEM"));
    frmMain &window = Started();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Cards(window, "startTemplate").size() == 1; }));
    QFile::remove(file);
    desktop.ExpectMessageContaining(QStringLiteral("Could not find file"));
    Click(Card(window, "startTemplate"));
    EXPECT_TRUE(window.Start().Page());
    EXPECT_TRUE(ShowsNothing(window));
}

TEST_F(StartPages, TheBoxAndTheEntryKeepTheChoiceInAllWindows) {
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

TEST_F(StartPages, TheArrowsGoFromCardToCardAndEnterPresses) {
    for (const char *name : {"one.map", "two.map", "three.map"}) Recent(QLatin1String(name));
    frmMain &window = Started();
    window.resize(1100, 700);
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

TEST_F(StartPages, TabGoesThroughAllOfItInReadingOrder) {
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

TEST_F(StartPages, EveryCardSaysWhatItIs) {
    Recent(QStringLiteral("plan.map"));
    frmMain &window = Started();
    for (const StartCard *card : PageOf(window).Cards()) {
        EXPECT_FALSE(card->accessibleName().isEmpty());
        EXPECT_TRUE(card->accessibleName().startsWith(card->Text().title));
    }
    EXPECT_TRUE(Card(window, "startMap").accessibleDescription().contains(QStringLiteral("plan.map")));
    EXPECT_FALSE(PageOf(window).accessibleName().isEmpty());
}

TEST_F(StartPages, ANarrowWindowHasTheColumnsBelowEachOther) {
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

TEST_F(StartPages, ATabThatIsClickedLeavesItOnTop) {
    frmMain &window = Started();
    window.ClickTab();
    const QPoint middle = window.CurrentView().geometry().center();
    QWidget *there = window.CurrentView().parentWidget()->childAt(middle);
    EXPECT_TRUE(there == &PageOf(window) || PageOf(window).isAncestorOf(there));
}

} // namespace mainwindow::testing
