#include "support/Contrast.h"

#include <gtest/gtest.h>

namespace support {

TEST(Contrast, IsTheOneOfTheGuidelines) {
    EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(Contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
    EXPECT_NEAR(Contrast(Qt::white, QColor(0x77, 0x77, 0x77)), 4.48, 0.01);
    EXPECT_NEAR(Contrast(Qt::red, Qt::white), 4.00, 0.01);
    EXPECT_NEAR(Contrast(Qt::green, Qt::white), 1.37, 0.01);
    EXPECT_NEAR(Contrast(Qt::blue, Qt::white), 8.59, 0.01);
}

TEST(Readable, MovesFaintTextsNoFurtherThanItTakes) {
    const QColor half(0, 0, 0, 128);
    EXPECT_GE(Contrast(Readable(half, Qt::white, Qt::black), Qt::white), kReadable);
    EXPECT_NE(Readable(half, Qt::white, Qt::black), QColor(Qt::black));
    EXPECT_EQ(Readable(QColor(80, 80, 80), Qt::white, Qt::black), QColor(80, 80, 80));
}

} // namespace support
