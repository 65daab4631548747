#include "diagram/layout/Pack.h"

#include <gmock/gmock.h>
#include <QRectF>
#include <random>

namespace diagram {
namespace {

constexpr double kGap = 300;

std::vector<QSizeF> RandomBoxes(unsigned seed, int count) {
    std::mt19937 random(seed);
    std::vector<QSizeF> boxes;
    for (int i = 0; i < count; ++i) boxes.emplace_back(100 + random() % 3000, 100 + random() % 2000);
    return boxes;
}

QRectF Extent(const std::vector<QSizeF> &boxes, const std::vector<QPointF> &corners) {
    QRectF all;
    for (std::size_t i = 0; i < boxes.size(); ++i) all |= QRectF(corners[i], boxes[i]);
    return all;
}

double Area(const std::vector<QSizeF> &boxes) {
    double area = 0;
    for (const QSizeF &box : boxes) area += box.width() * box.height();
    return area;
}

TEST(Pack, NothingAndOneBox) {
    EXPECT_TRUE(Pack({}, kGap).empty());
    EXPECT_EQ(Pack({{500, 200}}, kGap), std::vector<QPointF>{QPointF(0, 0)});
}

TEST(Pack, BoxesKeepTheGapBetweenThem) {
    for (unsigned seed = 0; seed < 40; ++seed) {
        const auto boxes = RandomBoxes(seed, 2 + int(seed) * 3);
        const auto corners = Pack(boxes, kGap);
        ASSERT_EQ(corners.size(), boxes.size());
        for (std::size_t a = 0; a < boxes.size(); ++a) {
            const QRectF around = QRectF(corners[a], boxes[a]).adjusted(-kGap, -kGap, kGap, kGap);
            EXPECT_GE(corners[a].x(), 0);
            EXPECT_GE(corners[a].y(), 0);
            for (std::size_t b = 0; b < a; ++b) {
                const QRectF both = around & QRectF(corners[b], boxes[b]);
                EXPECT_LT(std::min(both.width(), both.height()), 1e-6) << seed << ": " << a << ", " << b;
            }
        }
    }
}

TEST(Pack, ManyBoxesComeNearToTheProportionsAndWasteLittle) {
    for (const double proportions : {0.7, 1.0, 1.5, 3.0}) {
        const auto boxes = RandomBoxes(7, 200);
        const QRectF all = Extent(boxes, Pack(boxes, kGap, proportions));
        EXPECT_NEAR(all.width() / all.height() / proportions, 1, 0.25) << proportions;
        EXPECT_LT(all.width() * all.height(), Area(boxes) * 1.75); // gaps included
    }
}

TEST(Pack, EqualBoxesStandInRowsInTheirOrder) {
    const std::vector<QSizeF> boxes(25, QSizeF(1000, 1000));
    const auto corners = Pack(boxes, kGap);
    for (std::size_t i = 1; i < corners.size(); ++i) {
        const bool sameRow = corners[i].y() == corners[i - 1].y();
        const QPointF step = corners[i] - corners[i - 1];
        EXPECT_GT(sameRow ? step.x() : step.y(), 0) << i;
    }
    const QRectF all = Extent(boxes, corners);
    EXPECT_LT(all.width() / all.height(), 2);
    EXPECT_GT(all.width() / all.height(), 1);
}

TEST(Pack, SmallBoxesFillTheRoomBesideAHighOne) {
    std::vector<QSizeF> boxes(12, QSizeF(900, 400));
    boxes[5] = QSizeF(3000, 4000);
    const auto corners = Pack(boxes, kGap);
    EXPECT_EQ(corners[5], QPointF(0, 0));
    EXPECT_LT(Extent(boxes, corners).height(), 4800);
}

TEST(Pack, ABoxWiderThanTheRestHasARowOfItsOwn) {
    std::vector<QSizeF> boxes(9, QSizeF(500, 500));
    boxes[8] = QSizeF(9000, 600);
    const auto corners = Pack(boxes, kGap);
    EXPECT_EQ(corners[8], QPointF(0, 0));
    for (std::size_t i = 0; i < 8; ++i) EXPECT_EQ(corners[i].y(), 900);
}

} // namespace
} // namespace diagram
