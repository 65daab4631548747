#include "diagram/view/Viewport.h"

#include <gtest/gtest.h>

namespace diagram::testing {

TEST(Viewport, FittingZoom_FitsTheLongerSide) {
    EXPECT_NEAR(FittingZoom(QRectF(0, 0, 776 * 15 * 2, 100), QSize(800, 600)), 50, 1e-9);
    EXPECT_NEAR(FittingZoom(QRectF(500, 500, 100, 576 * 15 / 2.0), QSize(800, 600)), 200, 1e-9);
}

TEST(Viewport, FittingZoom_OfNothingIs100) { EXPECT_EQ(FittingZoom(QRectF(), QSize(800, 600)), 100); }

TEST(Viewport, FittingZoom_StaysInItsRange) {
    EXPECT_EQ(FittingZoom(QRectF(0, 0, 1, 1), QSize(800, 600)), 800);
    EXPECT_EQ(FittingZoom(QRectF(0, 0, 1e9, 1e9), QSize(800, 600)), 1);
}

TEST(Viewport, ScrollableArea_OfSmallContentIsTheViewport) {
    EXPECT_EQ(ScrollableArea(QRectF(10, 10, 100, 100), QSize(800, 600), QRect(0, 0, 800, 600)),
              QRect(0, 0, 800, 600));
    EXPECT_EQ(ScrollableArea(QRectF(), QSize(800, 600), QRect(0, 0, 800, 600)), QRect(0, 0, 800, 600));
}

TEST(Viewport, ScrollableArea_ReachesHalfAViewportBeyondTheContent) {
    EXPECT_EQ(ScrollableArea(QRectF(100, 100, 2000, 1000), QSize(800, 600), QRect(0, 0, 800, 600)),
              QRect(0, 0, 2500, 1400));
}

TEST(Viewport, ScrollableArea_ReachesContentLeftOfTheOrigin) {
    const QRect area = ScrollableArea(QRectF(-300, -200, 100, 100), QSize(800, 600), QRect(0, 0, 800, 600));
    EXPECT_LT(area.left(), -300);
    EXPECT_LT(area.top(), -200);
}

TEST(Viewport, ScrollableArea_NeedsNoMoreForTheOutlineOfWhatStandsAtTheEdge) {
    EXPECT_EQ(ScrollableArea(QRectF(-1, -0.5, 500, 100), QSize(800, 600), QRect(0, 0, 800, 600)),
              QRect(0, 0, 800, 600));
}

TEST(Viewport, ScrollableArea_HoldsWhatIsSeen) {
    EXPECT_EQ(ScrollableArea(QRectF(0, 0, 100, 100), QSize(800, 600), QRect(900, 700, 800, 600)),
              QRect(0, 0, 1700, 1300));
    EXPECT_EQ(ScrollableArea(QRectF(0, 0, 100, 100), QSize(800, 600), QRect(-50, -20, 800, 600)),
              QRect(-50, -20, 850, 620));
}

TEST(Viewport, ScrollableArea_OfEndlessContentStaysAnInteger) {
    const QRect area = ScrollableArea(QRectF(0, 0, 1e30, 1e30), QSize(800, 600), QRect(0, 0, 800, 600));
    EXPECT_GT(area.width(), 0);
    EXPECT_GT(area.height(), 0);
}

} // namespace diagram::testing
