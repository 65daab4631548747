#include "diagram/geometry/Polyline.h"

#include <gtest/gtest.h>

namespace diagram {

static const std::vector<QPointF> kCorner{{0, 0}, {10, 0}, {10, 30}};

TEST(Polyline, RouteLength_AddsTheSegments) {
    EXPECT_DOUBLE_EQ(RouteLength(kCorner), 40);
    EXPECT_DOUBLE_EQ(RouteLength(std::span(kCorner).first(1)), 0);
}

TEST(Polyline, PlaceOnRoute_TellsPointDirectionAndSegment) {
    const RoutePlace place = PlaceOnRoute(kCorner, 20);
    EXPECT_EQ(place.point, QPointF(10, 10));
    EXPECT_EQ(place.direction, QPointF(0, 1));
    EXPECT_EQ(place.segment, 1u);
}

TEST(Polyline, PlaceOnRoute_HoldsTheDistanceBetweenTheEnds) {
    EXPECT_EQ(PlaceOnRoute(kCorner, -5).point, QPointF(0, 0));
    EXPECT_EQ(PlaceOnRoute(kCorner, 99).point, QPointF(10, 30));
}

TEST(Polyline, PlaceOnRoute_OfARouteWithoutLengthHasADirection) {
    const std::vector<QPointF> dot{{3, 4}, {3, 4}};
    EXPECT_EQ(PlaceOnRoute(dot, 0).point, QPointF(3, 4));
    EXPECT_EQ(PlaceOnRoute(dot, 1).direction, QPointF(1, 0));
}

TEST(Polyline, NearestOnRoute_MeasuresAlongTheRoute) {
    EXPECT_DOUBLE_EQ(NearestOnRoute(kCorner, {4, -3}), 4);
    EXPECT_DOUBLE_EQ(NearestOnRoute(kCorner, {15, 12}), 22);
    EXPECT_DOUBLE_EQ(NearestOnRoute(kCorner, {-5, -5}), 0);
    EXPECT_DOUBLE_EQ(NearestOnRoute(kCorner, {12, 99}), 40);
}

TEST(Polyline, StretchOfRoute_LiesBetweenTheDistances) {
    EXPECT_EQ(StretchOfRoute(kCorner, 5, 20), (std::vector<QPointF>{{5, 0}, {10, 0}, {10, 10}}));
    EXPECT_EQ(StretchOfRoute(kCorner, 15, 20), (std::vector<QPointF>{{10, 5}, {10, 10}}));
}

TEST(Polyline, CutStart_DropsTheSegmentsThatAreEaten) {
    std::vector<QPointF> route = kCorner;
    CutStart(route, 15);
    EXPECT_EQ(route, (std::vector<QPointF>{{10, 5}, {10, 30}}));
}

TEST(Polyline, CutEnd_ShortensTheLastSegment) {
    std::vector<QPointF> route = kCorner;
    CutEnd(route, 10);
    EXPECT_EQ(route, (std::vector<QPointF>{{0, 0}, {10, 0}, {10, 20}}));
}

TEST(Polyline, CutStart_OfMoreThanTheRouteLeavesItsEnd) {
    std::vector<QPointF> route = kCorner;
    CutStart(route, 100);
    EXPECT_EQ(route, (std::vector<QPointF>{{10, 30}, {10, 30}}));
}

} // namespace diagram
