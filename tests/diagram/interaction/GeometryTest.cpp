#include "diagram/interaction/BendEdit.h"
#include "diagram/interaction/ResizeNodes.h"
#include "diagram/interaction/Snap.h"
#include "diagram/model/ScreenValues.h"

#include "diagram/model/Surface.h"

#include <gtest/gtest.h>

namespace diagram::testing {

TEST(ResizedBox, StopsAtTheSmallestSide) {
    EXPECT_EQ(ResizedBox(QRectF(100, 100, 300, 300), 0, QPointF(1000, 1000), false),
              QRectF(385, 385, kSmallestSide, kSmallestSide));
    EXPECT_EQ(ResizedBox(QRectF(100, 100, 300, 300), 4, QPointF(-1000, -1000), false),
              QRectF(100, 100, kSmallestSide, kSmallestSide));
}

TEST(ResizedBox, ReachesBeyondThePage) {
    EXPECT_EQ(ResizedBox(QRectF(100, 100, 300, 300), 0, QPointF(-500, -500), false),
              QRectF(-400, -400, 800, 800));
}

TEST(ResizedBox, KeepAspect_LetsTheLargerChangeLead) {
    EXPECT_EQ(ResizedBox(QRectF(0, 0, 200, 100), 4, QPointF(100, 10), true), QRectF(0, 0, 300, 150));
    EXPECT_EQ(ResizedBox(QRectF(0, 0, 200, 100), 3, QPointF(100, 0), true), QRectF(0, -25, 300, 150));
}

TEST(ResizedBox, OfANodeWithoutSize_GrowsFromNothing) {
    EXPECT_EQ(ResizedBox(QRectF(100, 100, 0, 0), 4, QPointF(50, 60), false), QRectF(100, 100, 50, 60));
    EXPECT_EQ(ResizedBox(QRectF(100, 100, 0, 0), 4, QPointF(-50, -60), true), QRectF(100, 100, 0, 0));
}

TEST(ResizedInProportion, KeepsTheSideOppositeToTheHandle) {
    const QRectF before(0, 0, 100, 100);
    EXPECT_EQ(ResizedInProportion(QRectF(500, 500, 50, 40), 4, before, QRectF(0, 0, 200, 150)),
              QRectF(500, 500, 100, 60));
    EXPECT_EQ(ResizedInProportion(QRectF(500, 500, 50, 40), 0, before, QRectF(-100, -50, 200, 150)),
              QRectF(450, 480, 100, 60));
}

TEST(KeepOnSurface, ShortensOnlyWhatLeadsOut) {
    EXPECT_EQ(KeepOnSurface(QRectF(100, 200, 50, 50), QPointF(-300, -100)), QPointF(-100, -100));
    EXPECT_EQ(KeepOnSurface(QRectF(-100, 200, 50, 50), QPointF(-10, 10)), QPointF(0, 10));
    EXPECT_EQ(KeepOnSurface(QRectF(-100, 200, 50, 50), QPointF(10, 10)), QPointF(10, 10));
}

TEST(SnapValue, GoesToTheNearestLine) {
    Surface surface;
    surface.Screen().SetGridSize(150);
    EXPECT_EQ(SnapValue(surface, 74), 0);
    EXPECT_EQ(SnapValue(surface, 76), 150);
    EXPECT_EQ(SnapValue(surface, -76), -150);
}

TEST(BendDragged, LeavesTheEnds) {
    const std::vector<Point> route{{0, 0}, {100, 0}, {100, 100}};
    EXPECT_EQ(BendDragged(route, 0, QPointF(5, 5), 0), route);
    EXPECT_EQ(BendDragged(route, 2, QPointF(5, 5), 0), route);
    EXPECT_EQ(BendDragged(route, 7, QPointF(5, 5), 0), route);
    EXPECT_EQ(BendDragged(route, 1, QPointF(5, 6), 0), (std::vector<Point>{{0, 0}, {5, 6}, {100, 100}}));
}

TEST(SegmentDragged, MakesABendOfAFreeStyle) {
    const std::vector<Point> route{{0, 0}, {100, 0}};
    const std::vector<Point> bent{{0, 0}, {50, 40}, {100, 0}};
    EXPECT_EQ(SegmentDragged(route, 0, QPointF(50, 40), 0), bent);
    EXPECT_EQ(SegmentDragged(route, 0, QPointF(50, 40), 14), bent);
    EXPECT_EQ(SegmentDragged(route, 1, QPointF(50, 40), 0), route);
}

TEST(SegmentDragged, ShiftsAnOrthogonalSegmentAcrossItsDirection) {
    const std::vector<Point> route{{0, 0}, {50, 0}, {50, 100}, {200, 100}}; // H V H
    EXPECT_EQ(SegmentDragged(route, 1, QPointF(80, 33), 5),
              (std::vector<Point>{{0, 0}, {80, 0}, {80, 100}, {200, 100}}));
}

TEST(SegmentDragged, MovesAControlPointOfABezier) {
    const std::vector<Point> route{{0, 0}, {10, 0}, {20, 0}, {30, 0}};
    EXPECT_EQ(SegmentDragged(route, 0, QPointF(5, 9), 1),
              (std::vector<Point>{{0, 0}, {5, 9}, {20, 0}, {30, 0}}));
    EXPECT_EQ(SegmentDragged(route, 2, QPointF(5, 9), 1),
              (std::vector<Point>{{0, 0}, {10, 0}, {5, 9}, {30, 0}}));
}

} // namespace diagram::testing
