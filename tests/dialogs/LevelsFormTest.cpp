#include "tests/dialogs/LevelsFormTest.h"

#include <QGroupBox>
#include <QHeaderView>

namespace dialogs::testing {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

TEST_F(LevelsForm, ShowsTheLevelsInTheirOrderWithTickAndColour) {
    Open();
    EXPECT_THAT(Names(), ElementsAre("1", "2", "12", "12 Important"));
    EXPECT_EQ(Row(0).checkState(0), Qt::Checked);
    EXPECT_EQ(Row(1).checkState(0), Qt::Unchecked);
    EXPECT_EQ(NameList::ColourOf(Row(2)), 0x333333);
    EXPECT_EQ(Row(2).foreground(0).color(), support::ToQColor(0x333333));
    EXPECT_EQ(List().headerItem()->text(0), QStringLiteral("Level"));
}

TEST_F(LevelsForm, CaptionsAreTheProducts) {
    Open();
    const std::pair<const char *, const char *> captions[] = {
        {"cmdNew", "&New"},     {"cmdEdit", "&Edit"},       {"cmdDelete", "&Delete"},
        {"cmdColor", "Colo&r"}, {"cmdDefault", "&Default"}, {"cmdCancel", "&Cancel"},
    };
    for (const auto &[name, caption] : captions)
        EXPECT_EQ(Find<QPushButton>(name).text(), QLatin1String(caption));
    EXPECT_EQ(form->findChild<QGroupBox *>()->title(), QStringLiteral("&Levels"));
}

// The middle of the picture in the row.
TEST_F(LevelsForm, ASwatchShowsTheColour) {
    Levels().Item(1).Color = 0x0000FF;
    Open();
    const QImage swatch = Row(0).icon(0).pixmap(List().iconSize()).toImage();
    EXPECT_EQ(swatch.pixelColor(swatch.width() / 2, swatch.height() / 2), QColor(Qt::red));
}

TEST_F(LevelsForm, ALightTextStandsOnADarkPlateAndADarkOneOnNone) {
    Levels().Item(1).Color = 0xF0FFFF;
    Open();
    EXPECT_LT(Row(0).background(0).color().lightness(), 100);
    EXPECT_EQ(Row(1).background(0).style(), Qt::NoBrush);
}

TEST_F(LevelsForm, NewThenCancelAddsNothing) {
    Open();
    PressNew(QStringLiteral("Later"));
    EXPECT_EQ(Names().last(), QStringLiteral("Later"));
    Press("cmdCancel");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Levels().count(), 4);
}

TEST_F(LevelsForm, NewIsSelectedTickedAndEdited) {
    Open();
    Press("cmdNew");
    EXPECT_EQ(List().currentItem(), &Row(4));
    EXPECT_EQ(Row(4).checkState(0), Qt::Checked);
    ASSERT_NE(Editor(), nullptr);
    EXPECT_EQ(Editor()->text(), QStringLiteral("New Item"));
}

TEST_F(LevelsForm, ANewNameAsksForTheColour) {
    Open();
    PressNew(QStringLiteral("Later"), 0x00FF00);
    EXPECT_THAT(desktop.dialogs.startColours, ElementsAre(0));
    Press("cmdOK");
    ASSERT_EQ(Levels().count(), 5);
    EXPECT_EQ(Levels().Item(5).LevelName, QStringLiteral("Later"));
    EXPECT_EQ(Levels().Item(5).Color, 0x00FF00);
    EXPECT_TRUE(Levels().Item(5).Selected);
}

TEST_F(LevelsForm, NewWithItsNameLeftAndOkMakesALevelNewItem) {
    Open();
    Press("cmdNew");
    QTest::keyClick(Editor(), Qt::Key_Escape);
    EXPECT_TRUE(IsOpen()) << "Escape ends the typing alone";
    Press("cmdOK");
    ASSERT_EQ(Levels().count(), 5);
    EXPECT_EQ(Levels().Item(5).LevelName, QStringLiteral("New Item"));
}

TEST_F(LevelsForm, OkTakesTheNameThatIsBeingTypedAndItsColour) {
    Open();
    Press("cmdNew");
    Editor()->setText(QStringLiteral("Typed"));
    desktop.ExpectColour(0x123456);
    Press("cmdOK");
    EXPECT_FALSE(IsOpen());
    ASSERT_EQ(Levels().count(), 5);
    EXPECT_EQ(Levels().Item(5).LevelName, QStringLiteral("Typed"));
    EXPECT_EQ(Levels().Item(5).Color, 0x123456);
}

TEST_F(LevelsForm, ANewRowThatIsLeftByAClickOnAnotherIsTheOneThatGetsTheColour) {
    Open();
    Press("cmdNew");
    Editor()->setText(QStringLiteral("Typed"));
    desktop.ExpectColour(0x123456);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().visualItemRect(&Row(0)).center());
    QCoreApplication::processEvents();
    EXPECT_EQ(List().currentItem(), &Row(0));
    EXPECT_EQ(Row(4).text(0), QStringLiteral("Typed"));
    EXPECT_EQ(NameList::ColourOf(Row(4)), 0x123456);
    EXPECT_EQ(NameList::ColourOf(Row(0)), 0x111111);
}

TEST_F(LevelsForm, CancelWhileANameIsTypedAsksForNoColour) {
    Open();
    Press("cmdNew");
    Editor()->setText(QStringLiteral("Typed"));
    Press("cmdCancel");
    QCoreApplication::processEvents();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Levels().count(), 4);
}

TEST_F(LevelsForm, EnterInANameDoesNotCloseTheForm) {
    Open();
    Rename(0, QStringLiteral("First"));
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Row(0).text(0), QStringLiteral("First"));
    QTest::keyClick(&List(), Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Levels().Item(1).LevelName, QStringLiteral("First"));
}

TEST_F(LevelsForm, F2EditsAndSpaceTicksAndDeleteDeletes) {
    Open();
    Select(1);
    QTest::keyClick(&List(), Qt::Key_Space);
    EXPECT_EQ(Row(1).checkState(0), Qt::Checked);
    QTest::keyClick(&List(), Qt::Key_F2);
    EXPECT_NE(Editor(), nullptr);
    Type(QStringLiteral("Second"));
    QTest::keyClick(&List(), Qt::Key_Delete);
    EXPECT_THAT(Names(), ElementsAre("1", "12", "12 Important"));
}

TEST_F(LevelsForm, ARenamedLevelKeepsItsKeySoNodesFollow) {
    diagram::Node &node = NodeOfLevel(2);
    const QString key = Levels().Item(2).Key;
    Open();
    Rename(1, QStringLiteral("Risk"));
    Press("cmdOK");
    EXPECT_EQ(Levels().Item(2).Key, key);
    EXPECT_EQ(LevelOf(node), QStringLiteral("Risk"));
}

TEST_F(LevelsForm, DeletedThenOkThenReopenedTheRowIsBack) {
    Open();
    Select(1);
    Press("cmdDelete");
    EXPECT_THAT(Names(), ElementsAre("1", "12", "12 Important"));
    EXPECT_EQ(List().currentItem(), &Row(1)) << "the row that took its place";
    Press("cmdOK");
    EXPECT_EQ(argument().status, QStringLiteral("“2” stays in the Map and is listed again next time."));
    EXPECT_EQ(Levels().count(), 4);
    EXPECT_EQ(Levels().Item(2).Color, 0x222222);
    Open();
    EXPECT_THAT(Names(), ElementsAre("1", "2", "12", "12 Important"));
}

TEST_F(LevelsForm, SeveralDeletedRowsAreCountedInTheStatus) {
    Open();
    Press("cmdDelete");
    Press("cmdDelete");
    Press("cmdOK");
    EXPECT_EQ(argument().status,
              QStringLiteral("2 deleted ones stay in the Map and are listed again next time."));
}

TEST_F(LevelsForm, ANewRowThatIsDeletedAgainIsNothingToTell) {
    Open();
    Press("cmdNew");
    QTest::keyClick(Editor(), Qt::Key_Escape);
    Press("cmdDelete");
    Press("cmdOK");
    EXPECT_EQ(argument().status, QString());
    EXPECT_EQ(Levels().count(), 4);
}

TEST_F(LevelsForm, WithoutARowOnlyNewCanBePressed) {
    Levels().Clear();
    Open();
    for (const char *name : {"cmdEdit", "cmdDelete", "cmdColor"})
        EXPECT_FALSE(Find<QPushButton>(name).isEnabled()) << name;
    PressNew(QStringLiteral("Only"));
    for (const char *name : {"cmdEdit", "cmdDelete", "cmdColor"})
        EXPECT_TRUE(Find<QPushButton>(name).isEnabled()) << name;
    Press("cmdOK");
    EXPECT_THAT(LevelNames(), ElementsAre("Only"));
}

TEST_F(LevelsForm, ColourChangesTheSelectedRowUnlessCancelled) {
    Open();
    Select(2);
    desktop.ExpectColour(0xABCDEF);
    Press("cmdColor");
    EXPECT_THAT(desktop.dialogs.startColours, ElementsAre(0x333333));
    desktop.ExpectColour(support::kNoColour);
    Press("cmdColor");
    Press("cmdOK");
    EXPECT_EQ(Levels().Item(3).Color, 0xABCDEF);
    EXPECT_EQ(Levels().Item(1).Color, 0x111111);
}

// The width changes with the list, so what the caption shows is read from the header.
TEST_F(LevelsForm, AClickOnTheColumnShowsItsWidthAsTheCaptionAndSortsNothing) {
    Open();
    QHeaderView &header = *List().header();
    const QPoint middle(header.sectionViewportPosition(0) + 20, header.height() / 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, middle);
    EXPECT_EQ(form->windowTitle(), QString::number(header.sectionSize(0)));
    EXPECT_THAT(Names(), ElementsAre("1", "2", "12", "12 Important"));
}

TEST_F(LevelsForm, OkRefusesAnEmptyNameAtItsRow) {
    Open();
    Rename(2, QStringLiteral("  "));
    Press("cmdOK");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(List().currentItem(), &Row(2));
    EXPECT_EQ(List().Message(), QStringLiteral("Please give it a name."));
    EXPECT_EQ(Levels().Item(3).LevelName, QStringLiteral("12"));
    Type(QStringLiteral("Named"));
    EXPECT_EQ(List().Message(), QString());
    Press("cmdOK");
    EXPECT_FALSE(IsOpen());
}

TEST_F(LevelsForm, OkRefusesADoubleNameAtItsRow) {
    Open();
    Rename(3, QStringLiteral("1"));
    Press("cmdOK");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(List().currentItem(), &Row(3));
    EXPECT_FALSE(List().Message().isEmpty());
    EXPECT_THAT(LevelNames(), ElementsAre("1", "2", "12", "12 Important"));
}

TEST_F(LevelsForm, TwoLevelsOfOneNameInTheMapMustBeToldApart) {
    Levels().Create(QStringLiteral("1"), true, 0);
    Open();
    Press("cmdOK");
    EXPECT_TRUE(IsOpen());
    Type(QStringLiteral("1 again"));
    Press("cmdOK");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Levels().Item(5).LevelName, QStringLiteral("1 again"));
}

TEST_F(LevelsForm, NamesThatDifferInCaseAloneAreTwo) {
    Open();
    Rename(0, QStringLiteral("risk"));
    Rename(1, QStringLiteral("Risk"));
    Press("cmdOK");
    EXPECT_THAT(LevelNames(), ElementsAre("risk", "Risk", "12", "12 Important"));
}

// Apostrophe and comma, and a name that fits no screen.
TEST_F(LevelsForm, UnusualNamesSurviveOkSaveAndOpen) {
    const QString longest(1000, u'x');
    Open();
    Rename(0, QStringLiteral("O'Brien's, \"first\""));
    Rename(1, longest);
    Press("cmdOK");
    SaveAs(*window, MapFile(QStringLiteral("names.map")));
    const auto loaded = Loaded(MapFile(QStringLiteral("names.map")));
    const document::cLevels &levels = loaded->clsSettings().Levels();
    EXPECT_EQ(levels.Item(1).LevelName, QStringLiteral("O'Brien's, \"first\""));
    EXPECT_EQ(levels.Item(2).LevelName, longest);
}

TEST_F(LevelsForm, TabGoesThroughListButtonsAndClosingButtons) {
    Open();
    QStringList names;
    for (int at = 0; at < 8; ++at) {
        names << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_THAT(names.mid(0, 5), ElementsAre("lvwColor", "cmdNew", "cmdEdit", "cmdDelete", "cmdColor"));
    // In the order in which the platform shows them.
    EXPECT_THAT(names.mid(5), UnorderedElementsAre("cmdOK", "cmdCancel", "cmdDefault"));
}

} // namespace dialogs::testing
