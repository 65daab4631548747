#include "support/FileFilter.h"

#include <gtest/gtest.h>

using namespace support;

TEST(FileFilter, SuffixOf_IsTheEndingOfTheRowsFirstPatternWhereItNamesOne) {
    const QString preset = QStringLiteral("flt");
    EXPECT_EQ(SuffixOf({QString(), {QStringLiteral("*.htm"), QStringLiteral("*.html")}}, preset),
              QStringLiteral("htm"));
    EXPECT_EQ(SuffixOf({QString(), {QStringLiteral("*.*")}}, preset), preset);
    EXPECT_EQ(SuffixOf({QString(), {QStringLiteral("*")}}, preset), preset);
    EXPECT_EQ(SuffixOf({QString(), {QStringLiteral("*.t?t")}}, preset), preset);
    EXPECT_EQ(SuffixOf({QString(), {}}, preset), preset);
}
