#include "widgets/ShapeGrid.h"

#include "widgets/ShapeNames.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace widgets::testing {

namespace {

constexpr int kEllipse = 0, kRectangle = 1, kRound = 2, kPunchedTape = 65, kDisplay = 77;

class ShapeGridTest : public ::testing::Test {
protected:
    ShapeGridTest() {
        QObject::connect(&grid, &ShapeGrid::Chosen, &grid, [this](int shape) { chosen.push_back(shape); });
        grid.resize(grid.sizeHint());
        grid.show();
        QApplication::setActiveWindow(&grid);
        grid.Begin();
    }

    QStringList Rows() const {
        QStringList rows;
        for (int row = 0; row < grid.List().model()->rowCount(); ++row)
            rows << grid.List().model()->index(row, 0).data().toString();
        return rows;
    }
    void Key(int key) { QTest::keyClick(QApplication::focusWidget(), Qt::Key(key)); }
    void Type(const QString &text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    QPoint PlaceOf(const QString &name) const {
        return grid.List().visualRect(grid.List().model()->index(int(Rows().indexOf(name)), 0)).center();
    }

    ShapeGrid grid;
    std::vector<int> chosen;
};

} // namespace

TEST_F(ShapeGridTest, ListsEveryShapeOnceWhereNoneWasUsed) {
    QStringList names;
    for (const ShapeName &shape : ShapeNames()) names << shape.caption;
    EXPECT_EQ(Rows(), names);
    EXPECT_EQ(names.size(), 44);
}

TEST_F(ShapeGridTest, ListsWhatWasUsedFirstUnderAHeading) {
    grid.SetRecent({kDisplay, kRound});
    EXPECT_EQ(Rows().mid(0, 5),
              QStringList({"Recently used", "Display", "Round Rectangle", "All shapes", "Ellipse"}));
    EXPECT_EQ(Rows().size(), 44 + 4);
}

TEST_F(ShapeGridTest, PassesOverRecentValuesThatAreNoShape) {
    grid.SetRecent({16, -1, kRound});
    EXPECT_EQ(Rows().mid(0, 3), QStringList({"Recently used", "Round Rectangle", "All shapes"}));
}

TEST_F(ShapeGridTest, GivesEachHeadingARowOfItsOwn) {
    grid.SetRecent({kRound});
    const ShapeList &list = grid.List();
    const auto place = [&](int row) { return list.visualRect(list.model()->index(row, 0)); };
    EXPECT_LT(place(0).bottom(), place(1).top());
    EXPECT_LT(place(1).bottom(), place(2).top());
    EXPECT_LT(place(2).bottom(), place(3).top());
    EXPECT_EQ(place(3).top(), place(4).top());
}

TEST_F(ShapeGridTest, AClickChooses) {
    QTest::mouseClick(grid.List().viewport(), Qt::LeftButton, {}, PlaceOf("Round Rectangle"));
    EXPECT_EQ(chosen, std::vector<int>({kRound}));
}

TEST_F(ShapeGridTest, AClickOnAHeadingChoosesNothing) {
    grid.SetRecent({kRound});
    QTest::mouseClick(grid.List().viewport(), Qt::LeftButton, {}, PlaceOf("All shapes"));
    EXPECT_TRUE(chosen.empty());
}

TEST_F(ShapeGridTest, WordsFindNamesThatHaveAllOfThem) {
    Type("raised edge");
    EXPECT_EQ(Rows(), QStringList({"Rectangle Edge Raised"}));
    Key(Qt::Key_Return);
    EXPECT_EQ(chosen, std::vector<int>({11}));
}

TEST_F(ShapeGridTest, BlanksInANameNeedNotBeTyped) {
    Type("punchedtape");
    Key(Qt::Key_Enter);
    EXPECT_EQ(chosen, std::vector<int>({kPunchedTape}));
}

TEST_F(ShapeGridTest, SaysSoWhereNoNameHasTheWords) {
    Type("zebra");
    EXPECT_EQ(Rows(), QStringList({"No such shape"}));
    Key(Qt::Key_Return);
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    EXPECT_TRUE(chosen.empty());
}

TEST_F(ShapeGridTest, EnterWithoutWordsChoosesNothing) {
    Key(Qt::Key_Return);
    EXPECT_TRUE(chosen.empty());
}

TEST_F(ShapeGridTest, TheArrowKeysGoFromPictureToPictureAndPassOverHeadings) {
    grid.SetRecent({kDisplay, kRound});
    Key(Qt::Key_Down);
    EXPECT_EQ(grid.List().Current(), kDisplay);
    Key(Qt::Key_Right);
    EXPECT_EQ(grid.List().Current(), kRound);
    Key(Qt::Key_Right);
    EXPECT_EQ(grid.List().Current(), kEllipse);
    Key(Qt::Key_Left);
    Key(Qt::Key_Down);
    EXPECT_EQ(grid.List().Current(), kRectangle); // straight below the second
    Key(Qt::Key_Up);
    EXPECT_EQ(grid.List().Current(), kRound);
    Key(Qt::Key_End);
    EXPECT_EQ(grid.List().Current(), kDisplay);
    Key(Qt::Key_Home);
    Key(Qt::Key_Return);
    EXPECT_EQ(chosen, std::vector<int>({kDisplay}));
}

TEST_F(ShapeGridTest, PagesGoAsFarAsIsSeen) {
    grid.resize(grid.width(), 200);
    Key(Qt::Key_Down);
    Key(Qt::Key_PageDown);
    const int row = grid.List().currentIndex().row();
    EXPECT_GT(row, 6);
    EXPECT_LT(row, 43);
    Key(Qt::Key_PageUp);
    EXPECT_EQ(grid.List().Current(), kEllipse);
}

TEST_F(ShapeGridTest, UpFromTheFirstRowLeadsBackToTheWords) {
    Key(Qt::Key_Down);
    EXPECT_TRUE(grid.List().hasFocus());
    Key(Qt::Key_Up);
    EXPECT_TRUE(grid.Words().hasFocus());
}

TEST_F(ShapeGridTest, WhatIsTypedAtAPictureGoesIntoTheWords) {
    Key(Qt::Key_Down);
    Type("hex");
    EXPECT_TRUE(grid.Words().hasFocus());
    EXPECT_EQ(Rows(), QStringList({"Hexagon"}));
}

TEST_F(ShapeGridTest, EscapeTakesTheWordsAwayFirst) {
    Type("hex");
    Key(Qt::Key_Escape);
    EXPECT_EQ(grid.Words().text(), QString());
    EXPECT_EQ(Rows().size(), 44);
}

TEST_F(ShapeGridTest, NamesTheShapeThatThePointerOrTheKeysAreAt) {
    Key(Qt::Key_Down);
    EXPECT_EQ(grid.Name().text(), "Ellipse");
    QTest::mouseMove(grid.List().viewport(), PlaceOf("Losange"));
    EXPECT_EQ(grid.Name().text(), "Losange");
}

TEST_F(ShapeGridTest, BeginsAtTheShapeThatIsInUse) {
    grid.SetChosen(kDisplay);
    Type("hex");
    grid.Begin();
    EXPECT_EQ(grid.Words().text(), QString());
    EXPECT_EQ(grid.List().Current(), kDisplay);
}

TEST_F(ShapeGridTest, FramesTheShapeThatIsInUse) {
    const auto painted = [this] { return grid.List().viewport()->grab().toImage(); };
    const QImage before = painted();
    grid.SetChosen(kRound);
    EXPECT_NE(painted(), before);
    grid.SetChosen(std::nullopt);
    EXPECT_EQ(painted(), before);
}

TEST_F(ShapeGridTest, TellsAssistantsWhatThingsAre) {
    EXPECT_FALSE(grid.Words().accessibleName().isEmpty());
    EXPECT_FALSE(grid.List().accessibleName().isEmpty());
}

} // namespace widgets::testing
