// Slices as text files of columns, and such files into maps.
#include "support/AtomicFile.h"
#include "tests/cli/CliTest.h"

namespace {

using cli::testing::kPlan;

struct CsvTest : cli::testing::CliTest {
    int Slices(const QString &map) { return Number(map, QStringLiteral("SELECT COUNT(*) FROM [Slices]")); }
    int NodesOf(const QString &map, int slice) {
        return Number(map, QStringLiteral("SELECT COUNT(*) FROM [Nodes] WHERE [Slice]=%1").arg(slice));
    }
};

} // namespace

TEST_F(CsvTest, WritesASliceAndImportReadsItBack) {
    const QString map = Map("plan.map");
    EXPECT_EQ(Run({"csv", map, Path("out.csv")}), cli::kGood) << err.toStdString();
    EXPECT_EQ(out,
              QStringLiteral("A text file carries no fonts, second texts, pictures and points of links.\n"));
    const QByteArray table = support::ReadWholeFile(Path("out.csv"));
    EXPECT_TRUE(table.startsWith("\xEF\xBB\xBFType, Key, "));
    const int slices = Slices(map);
    const int nodes = NodesOf(map, 0);
    EXPECT_EQ(int(table.count("\r\n\"Node\",")), nodes);
    EXPECT_EQ(Run({"import", Path("out.csv"), map, "--new"}), cli::kGood) << err.toStdString();
    EXPECT_EQ(Slices(map), slices + 1);
    EXPECT_GE(NodesOf(map, slices), nodes);
    EXPECT_EQ(NodesOf(map, 0), nodes);
    EXPECT_EQ(Run({"info", map}), cli::kGood);
    EXPECT_TRUE(out.contains(QStringLiteral("out"))) << "the new slice is called as the file";
}

TEST_F(CsvTest, ImportAddsToTheSliceAskedFor) {
    const QString map = Map("plan.map");
    ASSERT_EQ(Run({"csv", map, "--slice", "2", Path("out.csv")}), cli::kGood);
    const int nodes = NodesOf(map, 1), slices = Slices(map);
    ASSERT_GT(nodes, 0);
    EXPECT_EQ(Run({"import", Path("out.csv"), map, "--slice", "2"}), cli::kGood) << err.toStdString();
    EXPECT_GE(NodesOf(map, 1), 2 * nodes);
    EXPECT_EQ(Slices(map), slices);
}

TEST_F(CsvTest, LeavesOutWhatItsFilterHides) {
    const QString map = Map("plan.map");
    const auto rows = [&](const QStringList &filter) {
        EXPECT_EQ(Run(QStringList{"csv", map, Path("out.csv")} + filter), cli::kGood) << err.toStdString();
        return support::ReadWholeFile(Path("out.csv"));
    };
    const QByteArray whole = rows({}), some = rows({"--filter-groups", "Finance"}),
                     fewer = rows({"--filter-groups", "Finance", "--filter-levels", "1"}),
                     all = rows({"--filter-groups",
                                 "Finance,IT,Sales & Marketing,Owner's View,D\u00E9p\u00F4t r\u00E9gional"});
    EXPECT_LT(some.size(), whole.size());
    EXPECT_LT(fewer.size(), some.size());
    EXPECT_LT(some.size(), all.size());
    EXPECT_TRUE(whole.contains("Raise fares"));
    // Whatever is left is a whole: its links lead to nodes that are there.
    EXPECT_EQ(Run({"import", Path("out.csv"), map, "--new"}), cli::kGood) << err.toStdString();
    EXPECT_EQ(Run({"csv", map, Path("out.csv"), "--filter-levels", "nobody"}), cli::kFailed);
    EXPECT_TRUE(err.contains(QStringLiteral("'nobody'")));
}

TEST_F(CsvTest, AnImportThatFailsLeavesTheMapAsItWas) {
    const QString map = Map("plan.map");
    const QByteArray before = support::ReadWholeFile(map);
    support::CopyFileTo(kPlan, Path("bad.csv"));
    EXPECT_EQ(Run({"import", Path("bad.csv"), map}), cli::kFailed);
    EXPECT_EQ(Run({"import", Path("none.csv"), map}), cli::kFailed);
    EXPECT_TRUE(err.contains(QStringLiteral("File not found")));
    EXPECT_TRUE(support::ReadWholeFile(map) == before);
    EXPECT_EQ(Run({"import", Path("bad.csv"), map, "--new", "--slice", "1"}), cli::kUsage);
    EXPECT_EQ(Run({"import", Path("bad.csv")}), cli::kUsage);
    EXPECT_EQ(Run({"csv", map, Path("out.csv"), "--slice", "99"}), cli::kFailed);
    EXPECT_EQ(Run({"csv", map, "--filter-levels"}), cli::kUsage);
}
