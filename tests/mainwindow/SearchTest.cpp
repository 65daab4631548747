#include "diagram/view/SurfaceView.h"
#include "mainwindow/menus/CommandMatch.h"
#include "mainwindow/menus/Commands.h"
#include "mainwindow/menus/CommandSearch.h"
#include "settings/Settings.h"
#include "tests/mainwindow/WindowTest.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QTest>

namespace mainwindow::testing {

TEST(CommandMatch, CaptionsReadWithoutTheirMarks) {
    EXPECT_EQ(PlainCaption(QStringLiteral("&Save As...")), QStringLiteral("Save As"));
    EXPECT_EQ(PlainCaption(QStringLiteral("Cut && Copy")), QStringLiteral("Cut & Copy"));
}

TEST(CommandMatch, EveryWordHasToBeThereAndBeginningsComeFirst) {
    const std::vector<SearchTexts> commands{{QStringLiteral("Background colour"), QStringLiteral("View")},
                                            {QStringLiteral("Ground floor"), {}},
                                            {QStringLiteral("Print"), QStringLiteral("File ground")},
                                            {QStringLiteral("The ground"), {}}};
    EXPECT_EQ(MatchingCommands(commands, QStringLiteral("GROUND")), (std::vector<int>{1, 3, 0, 2}));
    EXPECT_EQ(MatchingCommands(commands, QStringLiteral(" colour  view ")), std::vector<int>{0});
    EXPECT_TRUE(MatchingCommands(commands, QStringLiteral("ground nothing")).empty());
    EXPECT_EQ(MatchingCommands(commands, QString()).size(), commands.size());
}

namespace {

struct Search : WindowTest {
    frmMain &window = NewWindow();
    CommandSearch &box = window.Search();

    void Type(const QString &words) {
        Press(window, QStringLiteral("Ctrl+Shift+P"));
        QTest::keyClicks(&box, words);
    }
    void Enter() {
        QWidget *popup = QApplication::activePopupWidget();
        QTest::keyClick(popup ? popup : &box, Qt::Key_Return);
        ProcessEvents();
    }
};

} // namespace

TEST_F(Search, ItsKeyGoesToTheBox) {
    Press(window, QStringLiteral("Ctrl+Shift+P"));
    EXPECT_TRUE(box.hasFocus());
}

TEST_F(Search, OldWordsStayAndAreSelectedByTheKeyAndByAClick) {
    Type(QStringLiteral("grid"));
    if (QWidget *popup = QApplication::activePopupWidget()) popup->hide();
    window.activateWindow();
    ProcessEvents();
    Press(window, QStringLiteral("Ctrl+Shift+P"));
    EXPECT_EQ(box.selectedText(), QStringLiteral("grid")) << "it had the focus already";
    window.CurrentView().setFocus();
    ASSERT_FALSE(box.hasFocus());
    EXPECT_EQ(box.text(), QStringLiteral("grid"));
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(6, box.height() / 2));
    EXPECT_EQ(box.selectedText(), QStringLiteral("grid"));
    QTest::keyClicks(&box, QStringLiteral("snap"));
    EXPECT_EQ(box.text(), QStringLiteral("snap"));
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(6, box.height() / 2));
    EXPECT_TRUE(box.selectedText().isEmpty()) << "a second click places the cursor";
}

TEST_F(Search, FindsCommandsByWordsOfTheirTipsAndTheirMenus) {
    Type(QStringLiteral("clipboard cuts"));
    EXPECT_EQ(box.Offered(), QStringList(QStringLiteral("Edit \u203a Cut")));
    box.clear();
    Type(QStringLiteral("slice delete"));
    EXPECT_EQ(box.Offered(), QStringList(QStringLiteral("Edit \u203a Slice \u203a Delete")));
    box.clear();
    Type(QStringLiteral("octogon"));
    EXPECT_EQ(box.Offered(), QStringList(QStringLiteral("New Octogon")));
}

TEST_F(Search, FindsTheSetupFormsByWhatTheyHold) {
    for (const auto *word : {"level", "levels"}) {
        Type(QLatin1String(word));
        EXPECT_TRUE(box.Offered().contains(QStringLiteral("View \u203a Level Setup"))) << word;
        box.clear();
    }
    for (const auto *word : {"group", "groups"}) {
        Type(QLatin1String(word));
        EXPECT_TRUE(box.Offered().contains(QStringLiteral("View \u203a Group Setup"))) << word;
        box.clear();
    }
}

TEST_F(Search, EnterRunsTheFirstAndGoesBackToTheSurface) {
    Type(QStringLiteral("grid lines"));
    Enter();
    EXPECT_TRUE(window.CurrentSurface().GridLines());
    EXPECT_TRUE(window.MenuValue(QStringLiteral("mnuViewGrid")));
    EXPECT_TRUE(box.text().isEmpty());
    EXPECT_TRUE(window.CurrentView().hasFocus());
}

TEST_F(Search, TheFirstIsLitAndDownGoesToTheSecond) {
    Type(QStringLiteral("zoom"));
    ASSERT_GE(box.Offered().size(), 2);
    auto *list = qobject_cast<QAbstractItemView *>(QApplication::activePopupWidget());
    ASSERT_TRUE(list);
    const auto lit = [&] { return list->selectionModel()->selectedIndexes(); };
    ASSERT_EQ(lit().size(), 1);
    EXPECT_EQ(lit().front().row(), 0);
    QTest::keyClick(list, Qt::Key_Down);
    ASSERT_EQ(lit().size(), 1);
    EXPECT_EQ(lit().front().row(), 1);
    EXPECT_EQ(box.text(), QStringLiteral("zoom"));
    QTest::keyClicks(list, QStringLiteral(" in"));
    EXPECT_EQ(box.text(), QStringLiteral("zoom in"));
    EXPECT_EQ(lit().front().row(), 0);
}

TEST_F(Search, ACommandThatIsDisabledStays) {
    Type(QStringLiteral("undo"));
    Enter();
    EXPECT_EQ(box.text(), QStringLiteral("undo"));
}

TEST_F(Search, EscapeLeavesTheBoxAndRunsNothing) {
    Type(QStringLiteral("grid lines"));
    QWidget *popup = QApplication::activePopupWidget();
    if (popup) popup->hide();
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_FALSE(window.CurrentSurface().GridLines());
    EXPECT_TRUE(window.CurrentView().hasFocus());
}

TEST_F(Search, RunsFormatsAndShapesToo) {
    AddNode(window, 0, 0).SetSelected(true);
    ProcessEvents();
    Type(QStringLiteral("bold"));
    Enter();
    EXPECT_TRUE(window.CurrentSurface().Nodes().Item(1).Font().Bold());
    Type(QStringLiteral("new octogon"));
    Enter();
    ASSERT_EQ(window.CurrentSurface().Nodes().Count(), 2);
    EXPECT_EQ(window.CurrentSurface().Nodes().Item(2).Shape(), 15);
}

TEST_F(Search, EveryCommandCanBeFoundByItsCaption) {
    for (const CommandRow &row : mainwindow::Commands()) {
        if (!row.routine || row.offered) continue;
        box.clear();
        Type(PlainCaption(settings::ReplaceTerms(QString::fromUtf8(row.caption))));
        EXPECT_FALSE(box.Offered().isEmpty()) << row.key;
    }
}

} // namespace mainwindow::testing
