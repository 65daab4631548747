// Reports as rich text and as pages.
#include "support/AtomicFile.h"
#include "support/Files.h"
#include "tests/cli/CliTest.h"
#include "tests/Paths.h"

#include <QFile>

namespace {

struct ReportTest : cli::testing::CliTest {};

} // namespace

TEST_F(ReportTest, WritesRichTextOfOneSliceOrOfAll) {
    const QString map = Map("new.map");
    ASSERT_EQ(Run({"report", "--rtf", map, Path("two.rtf"), "--slice", "2", "--nodes", "--details", "--map"}),
              cli::kGood)
        << err.toStdString();
    const QByteArray two = support::ReadWholeFile(Path("two.rtf"));
    EXPECT_TRUE(two.startsWith("{\\rtf1"));
    EXPECT_EQ(two.count("\\emfblip"), 1);
    EXPECT_TRUE(two.contains("Text: ") && two.contains("Level: "));
    ASSERT_EQ(Run({"report", "--rtf", map, Path("all.rtf"), "--all", "--nodes"}), cli::kGood);
    const QByteArray all = support::ReadWholeFile(Path("all.rtf"));
    EXPECT_EQ(all.count("\\page\r\n"), 2);
    EXPECT_FALSE(all.contains("Level: ") || all.contains("\\emfblip"));
    EXPECT_GT(all.count("Text: "), two.count("Text: "));
    EXPECT_EQ(Run({"report", "--rtf", map, Path("x.rtf"), "--slice", "4", "--nodes"}), cli::kFailed);
    EXPECT_TRUE(err.contains(QStringLiteral("Slice 4 does not exist"))) << err.toStdString();
}

TEST_F(ReportTest, WritesAPageForEachSlice) {
    QFile::copy(tests::Source(QStringLiteral("product/velmora/Default.htm")), Path("Default.htm"));
    const QString map = Map("new.map");
    ASSERT_EQ(Run({"report", "--html", map, Path("a.htm"), "--all", "--nodes"}), cli::kGood)
        << err.toStdString();
    for (const char *name : {"a.htm", "a_-1.htm", "a_0.htm", "a_1.htm", "a_2.htm"})
        EXPECT_TRUE(support::FileExists(Path(name)));
    ASSERT_EQ(Run({"report", "--html", map, Path("b"), "--nodes"}), cli::kGood);
    EXPECT_TRUE(support::FileExists(Path("b.htm"))) << "a name without an ending gets one";
}
