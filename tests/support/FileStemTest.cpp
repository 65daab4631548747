#include "support/FileStem.h"

#include <gtest/gtest.h>

namespace support {

TEST(FileStem, IsTheNameWithoutFolderAndEnding) {
    EXPECT_EQ(FileStem("/maps/plan.map"), "plan");
    EXPECT_EQ(FileStem("/maps.old/plan"), "plan");
    EXPECT_EQ(FileStem("plan.2024.map"), "plan.2024");
    EXPECT_EQ(FileStem("/maps/.map"), ".map");
    EXPECT_EQ(FileStem(QString()), QString());
}

} // namespace support
