#include "vector/player/NearForms.h"

#include <gtest/gtest.h>

using namespace vector;

namespace {

constexpr QRectF kNear(0, 0, 100, 100);

} // namespace

TEST(NearForms, FormsThatLieThereStayAsTheyAre) {
    QPainterPath form;
    form.addEllipse(10, 10, 80, 80);
    EXPECT_EQ(AreaNear(form, kNear), form);
    EXPECT_EQ(LineNear(form, kNear), form);
}

TEST(NearForms, AreaNear_KeepsWhatIsSeenOfAHugeForm) {
    QPainterPath form;
    form.addEllipse(QPointF(50, 1e6 + 50), 1e6, 1e6); // its top is in the middle, nearly straight
    const QPainterPath area = AreaNear(form, kNear);
    EXPECT_TRUE(kNear.adjusted(-1, -1, 1, 1).contains(area.boundingRect()));
    EXPECT_TRUE(area.contains(QPointF(50, 60)));
    EXPECT_FALSE(area.contains(QPointF(50, 30)));
}

TEST(NearForms, AreaNear_KeepsHoles) {
    QPainterPath form;
    form.addRect(-1000, -1000, 3000, 3000);
    form.addRect(40, 40, 20, 20);
    const QPainterPath area = AreaNear(form, kNear);
    EXPECT_TRUE(area.contains(QPointF(20, 20)));
    EXPECT_FALSE(area.contains(QPointF(50, 50)));
}

TEST(NearForms, LineNear_LeavesOutTheStretchesOutside) {
    QPainterPath form(QPointF(-1000, 50));
    form.lineTo(1000, 50);
    form.lineTo(1000, 5000);
    form.lineTo(50, 5000);
    form.lineTo(50, -5000);
    const QPainterPath line = LineNear(form, kNear);
    QPainterPath expected(QPointF(0, 50));
    expected.lineTo(100, 50);
    expected.moveTo(50, 100);
    expected.lineTo(50, 0);
    EXPECT_EQ(line, expected);
}

TEST(NearForms, WhatIsWhollyOutside_LeavesNothing) {
    QPainterPath form;
    form.addRect(200, 200, 1e7, 1e7);
    EXPECT_TRUE(AreaNear(form, kNear).boundingRect().isEmpty());
    EXPECT_TRUE(LineNear(form, kNear).isEmpty());
}
