// The bars and how they are filled.
#include "tests/mainwindow/TemplateBarTest.h"

#include "mainwindow/templates/BarFilling.h"
#include "mainwindow/templates/BarPane.h"
#include "settings/DeliveredFiles.h"
#include "storage/Database.h"
#include "support/Files.h"

#include <QDir>
#include <QFile>
#include <QSplitter>
#include <QTest>

namespace mainwindow::testing {

TEST_F(TemplateBarTest, AFolderWithoutSubFoldersIsOneBar) {
    const frmMain &window = NewWindow();
    EXPECT_EQ(Bars(window), QStringList{"Templates"});
    EXPECT_EQ(RB(window).BarKey(0), settings::TemplatesFolder());
    EXPECT_EQ(RB(window).CurrentBar(), 0);
    EXPECT_EQ(RB(window).BarBackColor(0), QColor(0xE0, 0xE0, 0xE0));
}

TEST_F(TemplateBarTest, WithoutTheFolderThereIsAnEmptyBar) {
    QDir(ProgramFile(QStringLiteral("Templates"))).removeRecursively();
    frmMain &window = FilledWindow();
    EXPECT_EQ(Bars(window), QStringList{"Templates"});
    EXPECT_EQ(RB(window).ItemCount(0), 0);
    EXPECT_EQ(RB(window).BarNote(0), QStringLiteral("empty"));
}

TEST_F(TemplateBarTest, ASubFolderIsABarThatIsFilledWhenItIsOpened) {
    MakeTemplate(Beside(QStringLiteral("Plan.TEM")), {"a"});
    MakeTemplate(Beside(QStringLiteral("People/Roles.TEM")), {"b"});
    frmMain &window = FilledWindow();
    EXPECT_EQ(Bars(window), (QStringList{"Templates", "People"}));
    EXPECT_EQ(Items(window, 0), QStringList{"Plan"});
    EXPECT_EQ(RB(window).ItemCount(1), 0);
    OpenBar(window, 1);
    EXPECT_EQ(Items(window, 1), QStringList{"Roles"});
    EXPECT_EQ(RB(window).Item(1, 0).key, support::AddBackslash(RB(window).BarKey(1)) + "Roles.TEM");
    EXPECT_EQ(RB(window).BarNote(1), QStringLiteral("1"));
}

TEST_F(TemplateBarTest, AnOpenedBarStaysFilled) {
    MakeTemplate(Beside(QStringLiteral("Plan.TEM")), {"a"});
    MakeTemplate(Beside(QStringLiteral("People/Roles.TEM")), {"b"});
    frmMain &window = FilledWindow();
    OpenBar(window, 1);
    QFile::remove(Beside(QStringLiteral("Plan.TEM")));
    OpenBar(window, 0);
    EXPECT_EQ(Items(window, 0), QStringList{"Plan"});
}

TEST_F(TemplateBarTest, TheUsersOwnFolderIsShownAsFurtherBars) {
    MakeTemplate(Own(QStringLiteral("Mine.TEM")), {"a"});
    MakeTemplate(Own(QStringLiteral("Work/Ours.TEM")), {"a"});
    frmMain &window = FilledWindow();
    EXPECT_EQ(Bars(window), (QStringList{"Templates", "My Templates", "Work"}));
    OpenBar(window, 1);
    EXPECT_EQ(Items(window, 1), QStringList{"Mine"});
}

TEST_F(TemplateBarTest, EachKindIsListedAsWhatItIs) {
    MakeTemplate(Beside(QStringLiteral("Plan.TEM")), {"a"}, Qt::green);
    MakeFlat(Beside(QStringLiteral("Flat one.TEM")), {"b"});
    MakeFile(Beside(QStringLiteral("letter.odt")), "text");
    MakeFile(Beside(QStringLiteral("sign.ico")), "icon");
    storage::CreateDatabase(Beside(QStringLiteral("Other.TEM"))).Close();
    frmMain &window = FilledWindow();
    EXPECT_EQ(Items(window, 0), (QStringList{"Flat one", "Plan", "letter"}));
    const auto item = [&](const char *caption) {
        const ListBar::Place place = PlaceOf(window, QLatin1String(caption));
        return RB(window).Item(place.bar, place.item);
    };
    EXPECT_EQ(item("Plan").tag, QString());
    EXPECT_EQ(item("Plan").icon.pixmap(32).toImage().pixelColor(16, 16), QColor(Qt::green));
    EXPECT_EQ(item("Flat one").tag, QStringLiteral("Flat"));
    EXPECT_FALSE(item("Flat one").icon.isNull());
    EXPECT_EQ(item("letter").tag, QStringLiteral("EXTERNAL"));
}

TEST_F(TemplateBarTest, ABadFileIsToldAndTheOthersAreListed) {
    MakeTemplate(Beside(QStringLiteral("A.TEM")), {"a"});
    MakeFile(Beside(QStringLiteral("B.TEM")), "neither a surface file nor a database");
    MakeTemplate(Beside(QStringLiteral("C.TEM")), {"c"});
    desktop.ExpectMessageContaining(QStringLiteral("B.TEM"));
    frmMain &window = FilledWindow();
    EXPECT_EQ(Items(window, 0), (QStringList{"A", "C"}));
    ProcessEvents();
}

TEST_F(TemplateBarTest, ASecondWindowCopiesTheBarWithoutReadingTheDisk) {
    MakeTemplate(Beside(QStringLiteral("Plan.TEM")), {"a"}, Qt::green);
    MakeFile(Beside(QStringLiteral("letter.odt")), "text");
    MakeTemplate(Beside(QStringLiteral("People/Roles.TEM")), {"b"});
    frmMain &first = FilledWindow();
    OpenBar(first, 1);
    QDir(ProgramFile(QStringLiteral("Templates"))).removeRecursively();
    frmMain &second = NewWindow();
    ProcessEvents();
    ASSERT_EQ(Bars(second), Bars(first));
    for (int bar = 0; bar < 2; ++bar) {
        EXPECT_EQ(RB(second).BarKey(bar), RB(first).BarKey(bar));
        EXPECT_EQ(RB(second).BarBackColor(bar), QColor(0xE0, 0xE0, 0xE0));
        EXPECT_EQ(RB(second).BarNote(bar), RB(first).BarNote(bar));
        ASSERT_EQ(RB(second).ItemCount(bar), RB(first).ItemCount(bar));
        for (int item = 0; item < RB(first).ItemCount(bar); ++item) {
            const ListBarItem copy = RB(second).Item(bar, item), original = RB(first).Item(bar, item);
            EXPECT_EQ(copy.caption, original.caption);
            EXPECT_EQ(copy.key, original.key);
            EXPECT_EQ(copy.tag, original.tag);
            EXPECT_EQ(copy.icon.pixmap(32).toImage(), original.icon.pixmap(32).toImage());
        }
    }
}

TEST_F(TemplateBarTest, ASecondWindowFillsWhatTheFirstHasNot) {
    MakeTemplate(Beside(QStringLiteral("Plan.TEM")), {"a"});
    MakeTemplate(Beside(QStringLiteral("People/Roles.TEM")), {"b"});
    FilledWindow();
    frmMain &second = FilledWindow();
    EXPECT_EQ(RB(second).ItemCount(1), 0);
    OpenBar(second, 1);
    EXPECT_EQ(Items(second, 1), QStringList{"Roles"});
}

TEST_F(TemplateBarTest, ABarThatIsBeingFilledIsNotCopiedByHalves) {
    for (int i = 0; i < 3; ++i) MakeFlat(Beside(QStringLiteral("%1.TEM").arg(i)), {"a"});
    auto &first = *new frmMain(desktop.Get()); // deletes itself when it is closed
    frmMain *second = nullptr;
    QObject::connect(RB(first).model(), &QAbstractItemModel::rowsInserted, &RB(first), [&] {
        if (RB(first).ItemCount(0) == 1) second = new frmMain(desktop.Get());
    });
    first.ShowWindow();
    WaitForFill(first);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(RB(*second).ItemCount(0), 0);
    second->ShowWindow();
    WaitForFill(*second);
    EXPECT_EQ(RB(first).ItemCount(0), 3);
    EXPECT_EQ(RB(*second).ItemCount(0), 3);
}

TEST_F(TemplateBarTest, ATemplateSavedAgainIsShownAnewInAllWindows) {
    MakeTemplate(Beside(QStringLiteral("Plan.TEM")), {"a"}, Qt::green);
    frmMain &first = FilledWindow();
    frmMain &second = FilledWindow();
    MakeTemplate(Beside(QStringLiteral("Plan.TEM")), {"a"}, Qt::red);
    MakeTemplate(Beside(QStringLiteral("Zoo.TEM")), {"a"});
    for (frmMain *form : frmMain::Forms()) form->LoadRadBar();
    for (frmMain *window : {&first, &second}) {
        WaitForFill(*window);
        EXPECT_EQ(Items(*window, 0), (QStringList{"Plan", "Zoo"}));
        const ListBar::Place place = PlaceOf(*window, QStringLiteral("Plan"));
        EXPECT_EQ(RB(*window).Item(place.bar, place.item).icon.pixmap(32).toImage().pixelColor(16, 16),
                  QColor(Qt::red));
    }
}

TEST_F(TemplateBarTest, NoFileIsReadBeforeTheBarIsSeen) {
    MakeTemplate(Beside(QStringLiteral("Plan.TEM")), {"a"});
    auto *window = new frmMain(desktop.Get());
    EXPECT_EQ(RB(*window).CurrentBar(), 0);
    window->tmrBar_Timer();
    ProcessEvents();
    EXPECT_EQ(RB(*window).ItemCount(0), 0);
    EXPECT_FALSE(window->Templates().Filling().IsBusy());
    window->ShowWindow();
    WaitForFill(*window);
    EXPECT_EQ(RB(*window).ItemCount(0), 1);
}

TEST_F(TemplateBarTest, AThousandFilesLeaveTheWindowItsTurn) {
    for (int i = 0; i < 1000; ++i)
        MakeFlat(Beside(QStringLiteral("%1.TEM").arg(i, 4, 10, QLatin1Char('0'))), {"a"});
    frmMain &window = NewWindow();
    int turns = 0;
    QTimer others;
    QObject::connect(&others, &QTimer::timeout, [&] { turns += window.Templates().Filling().IsBusy(); });
    others.start(0);
    WaitForFill(window);
    EXPECT_EQ(RB(window).ItemCount(0), 1000);
    EXPECT_GT(turns, 3);
    EXPECT_EQ(RB(window).BarNote(0), QLocale().toString(1000));
}

TEST_F(TemplateBarTest, ABarThatGoesWhileItIsFilledIsForgotten) {
    frmMain &window = FilledWindow();
    QStringList files;
    for (int i = 0; i < 3; ++i) files << QStringLiteral("%1.TEM").arg(i);
    for (const QString &file : files) MakeFlat(Beside(file), {"a"});
    window.LoadBarDetails(0, RB(window).BarKey(0), files);
    EXPECT_TRUE(window.Templates().Filling().IsBusy());
    window.LoadRadBar();
    EXPECT_FALSE(window.Templates().Filling().IsBusy());
    WaitForFill(window);
    EXPECT_EQ(RB(window).ItemCount(0), 3);
}

TEST_F(TemplateBarTest, AFolderThatLeadsToItselfEndsSomewhere) {
    MakeTemplate(Beside(QStringLiteral("Plan.TEM")), {"a"});
    QFile::link(ProgramFile(QStringLiteral("Templates")), Beside(QStringLiteral("Round")));
    QFile::link(Beside(QStringLiteral("Nowhere")), Beside(QStringLiteral("Nowhere")));
    frmMain &window = FilledWindow();
    EXPECT_EQ(Bars(window), (QStringList{"Templates", "Round"}));
    OpenBar(window, 1);
    EXPECT_TRUE(Items(window, 1).contains(QStringLiteral("Plan")));
}

TEST_F(TemplateBarTest, OddNamesAreShownAsTheyAre) {
    const QString name = QStringLiteral("It's a \"plan\" für 計画.v2");
    MakeTemplate(Beside(name + QStringLiteral(".TEM")), {"a"});
    frmMain &window = FilledWindow();
    EXPECT_EQ(Items(window, 0), QStringList{name});
}

TEST_F(TemplateBarTest, TheBarIsHiddenAndShownFromTheViewMenuAndGivesItsRoomBack) {
    frmMain &window = NewWindow();
    const QString key = QStringLiteral("mnuViewTemplates");
    auto &picRHS = *window.findChild<QWidget *>(QStringLiteral("picRHS"));
    const int width = picRHS.width();
    EXPECT_TRUE(window.MenuValue(key));
    window.SetMenuValue(key, false);
    window.SmartMenuXP1_Click(key);
    ProcessEvents();
    EXPECT_FALSE(RB(window).isVisible());
    EXPECT_EQ(picRHS.width(), window.centralWidget()->width());
    EXPECT_FALSE(NewWindow().MenuValue(key)); // remembered
    window.SetMenuValue(key, true);
    window.SmartMenuXP1_Click(key);
    ProcessEvents();
    EXPECT_TRUE(RB(window).isVisible());
    EXPECT_EQ(picRHS.width(), width);
}

TEST_F(TemplateBarTest, AHiddenBarReadsNothingAndIsFilledOnceItIsShown) {
    MakeTemplate(Beside(QStringLiteral("Plan.TEM")), {"a"});
    NewWindow().Templates().Pane().SetShown(false);
    delete frmMain::Forms().front();
    frmMain &window = NewWindow();
    window.tmrBar_Timer();
    ProcessEvents();
    EXPECT_EQ(RB(window).ItemCount(0), 0);
    window.Templates().Pane().SetShown(true);
    WaitForFill(window);
    EXPECT_EQ(RB(window).ItemCount(0), 1);
}

TEST_F(TemplateBarTest, ItsWidthIsRememberedAndTheWindowsSizeLeavesItAlone) {
    frmMain &window = NewWindow();
    auto &splitter = *window.findChild<QSplitter *>(QStringLiteral("SSSplitter1"));
    QWidget *handle = splitter.handle(1);
    QTest::mousePress(handle, Qt::LeftButton, {}, handle->rect().center());
    QTest::mouseMove(handle, handle->rect().center() + QPoint(40, 0));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, handle->rect().center());
    const int width = RB(window).width();
    window.close();
    ProcessEvents();
    frmMain &next = NewWindow();
    EXPECT_EQ(RB(next).width(), width);
    next.setWindowState(Qt::WindowNoState);
    next.resize(next.width() - 60, next.height());
    ProcessEvents();
    EXPECT_EQ(RB(next).width(), width);
}

TEST_F(TemplateBarTest, TheSizeOfIconsIsRemembered) {
    RB(NewWindow()).StepIcons(1);
    EXPECT_EQ(RB(NewWindow()).IconSide(), 64);
}

} // namespace mainwindow::testing
