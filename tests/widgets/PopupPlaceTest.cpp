#include "widgets/PopupPlace.h"

#include <gtest/gtest.h>

namespace widgets::testing {

TEST(BesidePlace, StandsBelowMovedToTheLeftOrAboveWhereTheScreenEnds) {
    const QRect screen(0, 0, 800, 600);
    EXPECT_EQ(BesidePlace({300, 400}, {10, 50, 30, 30}, screen), QRect(10, 80, 300, 400));
    EXPECT_EQ(BesidePlace({300, 400}, {700, 50, 30, 30}, screen), QRect(500, 80, 300, 400));
    EXPECT_EQ(BesidePlace({300, 400}, {10, 500, 30, 30}, screen), QRect(10, 100, 300, 400));
    EXPECT_EQ(BesidePlace({300, 900}, {10, 50, 30, 30}, screen).bottom(), 599);
}

} // namespace widgets::testing
