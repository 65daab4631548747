#include "support/MixColours.h"

#include <gtest/gtest.h>

namespace support {

TEST(Mix, TakesAShareOfTheSecondColourToTheNearestNumber) {
    const QRgb a = qRgb(0, 100, 255), b = qRgb(255, 101, 0);
    EXPECT_EQ(Mix(a, b, 0), a);
    EXPECT_EQ(Mix(a, b, 1), b);
    EXPECT_EQ(Mix(a, b, 0.5), qRgb(128, 101, 128));
    EXPECT_EQ(Mix(QColor(a), QColor(b), 0.1), QColor(26, 100, 230));
}

TEST(Mix, LeavesAlphaOut) { EXPECT_EQ(Mix(qRgba(1, 2, 3, 0), qRgba(1, 2, 3, 9), 0.5), qRgb(1, 2, 3)); }

} // namespace support
