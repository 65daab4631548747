#include "vector/engine/MetafilePaths.h"

#include <gtest/gtest.h>

namespace vector {

TEST(MetafilePaths, PlainBox_IsFoundOnlyInUprightBoxes) {
    QPainterPath box, form;
    box.addRect(1, 2, 3, 4);
    form.addEllipse(1, 2, 3, 4);
    EXPECT_EQ(PlainBox(box), QRectF(1, 2, 3, 4));
    EXPECT_FALSE(PlainBox(form));
    EXPECT_FALSE(PlainBox(QTransform().rotate(30).map(box)));
}

TEST(MetafilePaths, Outside_CoversWhatTheFormLeavesFree) {
    QPainterPath form;
    form.addEllipse(0, 0, 600, 600);
    double area = 0;
    for (const QRectF &box : Outside(form, 10)) {
        area += box.width() * box.height();
        EXPECT_FALSE(form.contains(box.center()));
    }
    EXPECT_NEAR(area, 600 * 600 * (1 - 3.14159 / 4), 2000);
}

TEST(MetafilePaths, Dashes_HaveThePensPatternAroundCorners) {
    QPen pen(Qt::black, 10, Qt::CustomDashLine);
    pen.setDashPattern({4, 2});
    const std::vector<QPolygonF> dashes =
        Dashes(QPolygonF(QList<QPointF>{{0, 0}, {100, 0}, {100, 100}}), pen);
    ASSERT_EQ(dashes.size(), 4u);
    EXPECT_EQ(dashes[1], QPolygonF(QList<QPointF>{{60, 0}, {100, 0}}));
    EXPECT_EQ(dashes[2], QPolygonF(QList<QPointF>{{100, 20}, {100, 60}}));
    EXPECT_EQ(dashes[3], QPolygonF(QList<QPointF>{{100, 80}, {100, 100}}));
}

} // namespace vector
