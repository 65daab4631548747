// Nodes much larger than what is seen of them look as any other where they are seen.
#include "tests/diagram/render/Painting.h"

#include <gtest/gtest.h>

namespace diagram {

namespace {

const QRgb kRed = qRgb(255, 0, 0), kBlue = qRgb(0, 0, 255);
constexpr int kRectangle = 1, kEllipse = 0;

Node &Enormous(Painting &painting, int shape, float left, float top, float side) {
    Node &node = painting.Add(left, top, side, side);
    node.SetShape(shape);
    node.SetFillColor(support::Rgb(255, 0, 0));
    node.SetBorderColor(support::Rgb(0, 0, 255));
    node.SetDrawWidth(3);
    return node;
}

} // namespace

class FarForms : public ::testing::TestWithParam<float> {};

// The left side of the ellipse touches x = 50 at y = 75, where it is as good as plumb.
TEST_P(FarForms, AnEllipse_IsFilledToItsEdge) {
    Painting painting;
    Enormous(painting, kEllipse, 50, 75 - GetParam() / 2, GetParam());
    const QImage image = painting.Paint();
    EXPECT_EQ(image.pixel(20, 75), qRgb(255, 255, 255));
    EXPECT_EQ(image.pixel(50, 75), kBlue);
    EXPECT_EQ(image.pixel(120, 75), kRed);
}

TEST_P(FarForms, ADashedBorder_KeepsItsDashesWhereOneScrolls) {
    Painting painting;
    Enormous(painting, kRectangle, 50, -GetParam() / 2, GetParam()).SetDrawStyle(1);
    const QImage whole = painting.Paint();
    QImage half(200, 75, QImage::Format_RGB32);
    half.fill(Qt::white);
    {
        Scene scene(painting.surface);
        QPainter painter(&half);
        painting.renderer.Paint(painter, scene, QRectF(0, 75 * 15, 200 * 15, 75 * 15), painting.options);
    }
    const int dashed = CountOf(whole, QRect(48, 0, 6, 150), kBlue);
    EXPECT_GT(dashed, 100);
    EXPECT_LT(dashed, 440);
    for (int y = 1; y < 74; ++y) EXPECT_EQ(half.pixel(50, y), whole.pixel(50, y + 75)) << y;
}

INSTANTIATE_TEST_SUITE_P(Sides, FarForms, ::testing::Values(7000.0F, 9000.0F, 60000.0F));

} // namespace diagram
