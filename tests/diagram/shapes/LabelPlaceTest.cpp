#include "diagram/shapes/LabelPlace.h"

#include "diagram/geometry/Crossing.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

using namespace diagram;

namespace {

using Way = std::vector<QPointF>;

constexpr QSizeF kSize(900, 240);

struct Placed {
    Way way;
    LabelRequest request{way, false, kSize};
    std::vector<QRectF> boxes;
    std::vector<QLineF> lines;

    explicit Placed(Way points) : way(std::move(points)) { request.way = way; }
    QRectF Box() {
        request.boxes = boxes, request.lines = lines;
        QRectF box(QPointF(), request.size);
        box.moveCenter(PlaceLabel(request));
        return box;
    }
    bool IsOnTheWay() {
        const QRectF box = Box().adjusted(-1, -1, 1, 1);
        for (std::size_t i = 1; i < way.size(); ++i)
            if (RunsThrough(box, way[i - 1], way[i])) return true;
        return false;
    }
};

} // namespace

TEST(LabelPlace, StandsInTheMiddleOfAWayThatIsFree) {
    EXPECT_EQ(Placed({{0, 0}, {6000, 0}}).Box().center(), QPointF(3000, 0));
    EXPECT_EQ(Placed({{0, 0}, {0, 2000}, {4000, 2000}, {4000, 4000}}).Box().center(), QPointF(2000, 2000));
}

TEST(LabelPlace, LeavesABendForTheMiddleOfASegment) {
    Placed placed({{0, 0}, {4000, 0}, {4000, 4000}});
    EXPECT_EQ(placed.Box().center(), QPointF(2000, 0));
}

TEST(LabelPlace, TakesASegmentThatIsLongEnough) {
    Placed placed({{0, 0}, {0, 2000}, {500, 2000}, {500, 4000}});
    const QRectF box = placed.Box();
    EXPECT_TRUE(box.center().x() == 0 || box.center().x() == 500) << box.center().x();
    for (const QPointF &bend : {placed.way[1], placed.way[2]}) EXPECT_FALSE(box.contains(bend));
}

TEST(LabelPlace, LeavesAHeadInTheMiddle) {
    Placed placed({{0, 0}, {6000, 0}});
    placed.request.middleHead = 200;
    const QRectF box = placed.Box();
    EXPECT_TRUE(box.left() >= 3100 || box.right() <= 2900) << box.left();
    EXPECT_TRUE(placed.IsOnTheWay());
}

TEST(LabelPlace, LeavesTheHeadsOfAShortWayByStandingBesideIt) {
    Placed placed({{0, 0}, {0, 400}});
    placed.request.destinationHead = 200;
    const QRectF box = placed.Box();
    EXPECT_FALSE(placed.IsOnTheWay());
    EXPECT_EQ(box.center().y(), 200);
    EXPECT_NEAR(std::min(std::abs(box.left()), std::abs(box.right())), 87, 1); // past the head
}

TEST(LabelPlace, LeavesANodeAndAnotherLabel) {
    Placed placed({{0, 0}, {9000, 0}});
    placed.boxes = {{4000, -200, 800, 400}, {4900, -100, 600, 200}};
    const QRectF box = placed.Box();
    for (const QRectF &other : placed.boxes) EXPECT_FALSE(box.intersects(other));
    EXPECT_TRUE(placed.IsOnTheWay());
}

TEST(LabelPlace, LeavesALinkThatCrosses) {
    Placed placed({{0, 0}, {9000, 0}});
    placed.lines = {{4500, -3000, 4500, 3000}};
    EXPECT_FALSE(RunsThrough(placed.Box(), {4500, -3000}, {4500, 3000}));
    EXPECT_TRUE(placed.IsOnTheWay());
}

TEST(LabelPlace, StandsBesideOneOfTwoUprightLinksOnTheOuterSide) {
    Placed placed({{0, 0}, {0, 3000}});
    placed.lines = {{180, 0, 180, 3000}};
    EXPECT_LT(placed.Box().right(), 0);
}

TEST(LabelPlace, CoversAsLittleAsItCanWhereNothingIsFree) {
    Placed placed({{0, 0}, {3000, 0}});
    placed.boxes = {{-2000, -2000, 4300, 4000}, {2300, -2000, 5000, 1900}};
    const QRectF box = placed.Box();
    EXPECT_FALSE(box.intersects(placed.boxes[0]));
}

TEST(LabelPlace, ACurveHasNoBends) {
    Way way;
    for (int i = 0; i <= 16; ++i) way.emplace_back(i * 100, std::sin(i / 5.0) * 400);
    Placed placed(way);
    placed.request.curved = true;
    placed.request.size = QSizeF(300, 200);
    const QPointF middle = MiddleOfWay(way);
    EXPECT_EQ(placed.Box().center(), middle);
    placed.boxes = {QRectF(middle - QPointF(50, 50), QSizeF(100, 100))};
    EXPECT_FALSE(placed.Box().intersects(placed.boxes[0]));
    EXPECT_TRUE(placed.IsOnTheWay());
}

TEST(LabelPlace, AWayWithoutLengthHasAPlaceToo) {
    Placed placed({{10, 20}, {10, 20}});
    EXPECT_EQ(placed.Box().center(), QPointF(10, 20));
    placed.boxes = {{0, 0, 100, 100}};
    EXPECT_TRUE(ReachOfLabel(placed.request).contains(placed.Box()));
}

TEST(LabelPlace, StaysWithinItsReach) {
    for (int seed = 0; seed < 200; ++seed) {
        const auto number = [&, state = unsigned(seed * 7919 + 1)](int most) mutable {
            state = state * 1664525U + 1013904223U;
            return int(state >> 8) % most;
        };
        auto roll = number;
        Placed placed({QPointF(roll(4000), roll(4000)), QPointF(roll(4000), roll(4000)),
                       QPointF(roll(4000), roll(4000))});
        for (int i = 0; i < 6; ++i) placed.boxes.emplace_back(roll(4000), roll(4000), roll(2000), roll(2000));
        const QRectF box = placed.Box();
        placed.request.boxes = {};
        ASSERT_TRUE(ReachOfLabel(placed.request).contains(box)) << seed;
    }
}
