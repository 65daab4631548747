#include "support/FileFilter.h"

#include <gtest/gtest.h>

using namespace support;

TEST(FileFilter, ParseFileFilter_SplitsRowsAndPatterns) {
    const auto rows = ParseFileFilter("Map Files|*.map|Pictures|*.jpg;*.bmp|All Files|*.*");
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[1].title, "Pictures");
    EXPECT_EQ(rows[1].patterns, (QStringList{"*.jpg", "*.bmp"}));
    EXPECT_EQ(QtNameFilter(rows[0]), "Map Files (*.map)");
    EXPECT_EQ(QtNameFilter(rows[1]), "Pictures (*.jpg *.bmp)");
    EXPECT_EQ(QtNameFilter(rows[2]), "All Files (*)");
    EXPECT_TRUE(ParseFileFilter("").empty());
}

TEST(FileFilter, ParseFileFilter_DoesNotRepairALastRowWithoutAPattern) {
    const auto rows = ParseFileFilter("Map Files|*.map|All Files");
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[1].title, "All Files");
    EXPECT_TRUE(rows[1].patterns.isEmpty());
}

TEST(FileFilter, DefaultSuffix_TakesEverySpelling) {
    for (const char *text : {"map", ".map", "*.map"}) EXPECT_EQ(DefaultSuffix(text), "map");
    EXPECT_EQ(DefaultSuffix(""), "");
}

TEST(FileFilter, SuffixOf_IsTheEndingOfTheRowsFirstPatternWhereItNamesOne) {
    const QString preset = QStringLiteral("flt");
    EXPECT_EQ(SuffixOf({QString(), {QStringLiteral("*.htm"), QStringLiteral("*.html")}}, preset),
              QStringLiteral("htm"));
    EXPECT_EQ(SuffixOf({QString(), {QStringLiteral("*.*")}}, preset), preset);
    EXPECT_EQ(SuffixOf({QString(), {QStringLiteral("*")}}, preset), preset);
    EXPECT_EQ(SuffixOf({QString(), {QStringLiteral("*.t?t")}}, preset), preset);
    EXPECT_EQ(SuffixOf({QString(), {}}, preset), preset);
}
