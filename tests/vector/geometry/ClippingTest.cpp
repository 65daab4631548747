#include "vector/geometry/Clipping.h"

#include <gtest/gtest.h>

namespace vector {

namespace {

const QRectF kBox(0, 0, 100, 50);

} // namespace

TEST(PolygonWithin, WhatLiesInsideStays) {
    const QPolygonF inside(QList<QPointF>{{10, 10}, {90, 10}, {50, 40}});
    EXPECT_EQ(PolygonWithin(kBox, inside), inside);
    EXPECT_TRUE(PolygonWithin(kBox, {}).isEmpty());
}

TEST(PolygonWithin, WhatReachesBeyondIsCutAtTheEdges) {
    const QPolygonF around(QList<QPointF>{{-900, -900}, {900, -900}, {900, 900}, {-900, 900}});
    EXPECT_EQ(PolygonWithin(kBox, around).boundingRect(), kBox);
    const QPolygonF half(QList<QPointF>{{50, 10}, {150, 10}, {150, 20}, {50, 20}});
    EXPECT_EQ(PolygonWithin(kBox, half).boundingRect(), QRectF(50, 10, 50, 10));
}

TEST(PolygonWithin, WhatLiesOutsideLeavesNothing) {
    EXPECT_TRUE(PolygonWithin(kBox, QPolygonF(QList<QPointF>{{200, 0}, {300, 0}, {300, 40}})).isEmpty());
}

TEST(StretchWithin, IsTheShareOfThePieceInTheBox) {
    EXPECT_EQ(StretchWithin(kBox, {10, 10}, {20, 20}), (Stretch{0, 1}));
    EXPECT_EQ(StretchWithin(kBox, {-100, 10}, {300, 10}), (Stretch{0.25, 0.5}));
    EXPECT_EQ(StretchWithin(kBox, {10, 10}, {10, 10}), (Stretch{0, 1})) << "a point";
}

TEST(StretchWithin, IsEmptyForAPieceThatPassesBy) {
    EXPECT_TRUE(StretchWithin(kBox, {0, 60}, {100, 60}).IsEmpty());
    EXPECT_TRUE(StretchWithin(kBox, {-60, 20}, {20, -60}).IsEmpty()) << "past the corner";
}

} // namespace vector
