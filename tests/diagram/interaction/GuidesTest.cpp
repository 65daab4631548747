#include "diagram/interaction/Guides.h"

#include <gtest/gtest.h>

namespace diagram::testing {

namespace {

constexpr double kReach = 60;

QRectF Box(double left, double top, double width = 1500, double height = 900) {
    return {left, top, width, height};
}

} // namespace

TEST(Guides, Shift_DrawsAnEdgeToAnEdge) {
    const Guides guides({Box(3000, 6000)});
    EXPECT_EQ(guides.Shift(Box(3040, 0), Qt::Horizontal, Moving::Whole, kReach), -40);
    EXPECT_EQ(guides.Shift(Box(4460, 0), Qt::Horizontal, Moving::Whole, kReach), 40);
    EXPECT_EQ(guides.Shift(Box(3061, 0, 4000), Qt::Horizontal, Moving::Whole, kReach), std::nullopt);
}

TEST(Guides, Shift_DrawsAMiddleToAMiddle) {
    const Guides guides({Box(3000, 6000)});
    EXPECT_EQ(guides.Shift(Box(3270, 0, 900), Qt::Horizontal, Moving::Whole, kReach), 30);
    EXPECT_EQ(guides.Shift(Box(0, 6110, 900, 700), Qt::Vertical, Moving::Whole, kReach), -10);
}

TEST(Guides, Shift_TakesTheNearest) {
    const Guides guides({Box(3000, 6000), Box(3070, 8000)});
    EXPECT_EQ(guides.Shift(Box(3050, 0), Qt::Horizontal, Moving::Whole, kReach), 20);
}

TEST(Guides, Shift_OfASideLooksAtThatSideOnly) {
    const Guides guides({Box(3000, 6000)});
    EXPECT_EQ(guides.Shift(Box(1000, 0, 1980), Qt::Horizontal, Moving::High, kReach), 20);
    EXPECT_EQ(guides.Shift(Box(1000, 0, 1980), Qt::Horizontal, Moving::Low, kReach), std::nullopt);
    EXPECT_EQ(guides.Shift(Box(1000, 0, 1980), Qt::Horizontal, Moving::Nothing, kReach), std::nullopt);
}

TEST(Guides, Shift_MakesTheDistancesToBothNeighboursEqual) {
    const Guides guides({Box(0, 0, 1000), Box(5000, 100, 1000)});
    EXPECT_EQ(guides.Shift(Box(2540, 50, 900), Qt::Horizontal, Moving::Whole, kReach), 10);
}

TEST(Guides, Shift_CarriesTheDistanceInARowOn) {
    const Guides right({Box(0, 0, 1000), Box(1700, 100, 1000)});
    EXPECT_EQ(right.Shift(Box(3420, 50, 900), Qt::Horizontal, Moving::Whole, kReach), -20);
    const Guides below({Box(0, 0, 1000, 1000), Box(100, 1700, 1000, 1000)});
    EXPECT_EQ(below.Shift(Box(50, 3420, 700, 700), Qt::Vertical, Moving::Whole, kReach), -20);
    const Guides left({Box(5000, 0, 1000), Box(6700, 0, 1000)});
    EXPECT_EQ(left.Shift(Box(3410, 50, 900), Qt::Horizontal, Moving::Whole, kReach), -10);
}

TEST(Guides, Shift_PassesOverBoxesOutsideTheRow) {
    const Guides guides({Box(0, 3000, 1000), Box(5000, 3000, 1000)});
    EXPECT_EQ(guides.Shift(Box(2540, 50, 900), Qt::Horizontal, Moving::Whole, kReach), std::nullopt);
}

TEST(Guides, Lines_RunToTheNearestBoxInLine) {
    const Guides guides({Box(3000, 9000), Box(3000, 3000, 500)});
    const std::vector<QLineF> lines = guides.Lines(Box(3000, 0, 800), Qt::Horizontal, Moving::Whole);
    EXPECT_EQ(lines, std::vector<QLineF>{QLineF(3000, 0, 3000, 3900)});
    EXPECT_TRUE(guides.Lines(Box(3005, 0, 800), Qt::Horizontal, Moving::Whole).empty());
}

TEST(Guides, Gaps_ComeInPairs) {
    const Guides guides({Box(0, 0, 1000), Box(5000, 100, 1000)});
    const std::vector<QLineF> gaps = guides.Gaps(Box(2500, 0, 1000), Qt::Horizontal, Moving::Whole);
    EXPECT_EQ(gaps, (std::vector<QLineF>{QLineF(1000, 450, 2500, 450), QLineF(3500, 500, 5000, 500)}));
    EXPECT_TRUE(guides.Gaps(Box(2510, 0, 1000), Qt::Horizontal, Moving::Whole).empty());
}

TEST(Guides, WithoutNeighbours_NothingIsDrawn) {
    const Guides guides;
    EXPECT_EQ(guides.Shift(Box(0, 0), Qt::Horizontal, Moving::Whole, kReach), std::nullopt);
    EXPECT_TRUE(guides.Lines(Box(0, 0), Qt::Vertical, Moving::Whole).empty());
    EXPECT_TRUE(guides.Gaps(Box(0, 0), Qt::Vertical, Moving::Whole).empty());
}

} // namespace diagram::testing
