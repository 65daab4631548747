// What the filter of the command line and the views of a map leave out.
#include "support/AtomicFile.h"
#include "tests/cli/CliTest.h"

#include <QFile>

namespace {

struct FilterTest : cli::testing::CliTest {};

} // namespace

TEST_F(FilterTest, EveryOutputTakesANamedView) {
    const QString map = Map("plan.map");
    ASSERT_EQ(Run({"csv", map, Path("some.csv"), "--filter-groups", "Finance"}), cli::kGood);
    ASSERT_EQ(Run({"csv", map, Path("whole.csv")}), cli::kGood);
    Execute(map, {"CREATE TABLE [FilterViews] ([View] TEXT, [Level] TEXT, [Group] TEXT)",
                  "INSERT INTO [FilterViews] SELECT 'Money', NULL, NULL",
                  "INSERT INTO [FilterViews] SELECT 'Money', [Level], NULL FROM [Levels]",
                  "INSERT INTO [FilterViews] SELECT 'Money', NULL, 'Finance'"});
    EXPECT_EQ(Run({"csv", map, Path("out.csv"), "--view", "money"}), cli::kGood) << err.toStdString();
    EXPECT_FALSE(out.contains(QStringLiteral("no more")));
    EXPECT_LT(QFile(Path("out.csv")).size(), QFile(Path("whole.csv")).size());
    EXPECT_EQ(Run({"check", map}), cli::kGood) << out.toStdString();
    EXPECT_EQ(Run({"info", map}), cli::kGood);
    EXPECT_TRUE(out.contains(QStringLiteral("views: Money\n")));
    Execute(map, {"INSERT INTO [FilterViews] SELECT 'Money', 'Gone', NULL"});
    const QString told = QStringLiteral("the view 'Money' ticks what the map has no more: Gone\n");
    for (const QStringList &command : {QStringList{"csv", map, Path("out.csv")},
                                       {"picture", map, Path("out.svg")},
                                       {"picture", map, "--all", Path("pictures"), "--format", "svg"},
                                       {"report", "--html", map, Path("out.html")},
                                       {"slides", map, Path("out.pptx")},
                                       {"print", map, "--to", Path("out.pdf")}}) {
        EXPECT_EQ(Run(command + QStringList{"--view", "Money"}), cli::kGood)
            << command.join(u' ').toStdString() << err.toStdString();
        EXPECT_TRUE(out.contains(told)) << command.join(u' ').toStdString();
        EXPECT_EQ(Run(command + QStringList{"--view", "None"}), cli::kFailed);
        EXPECT_TRUE(err.contains(QStringLiteral("There is no view 'None'. The map has: Money")));
        EXPECT_EQ(Run(command + QStringList{"--view"}), cli::kUsage);
    }
}

TEST_F(FilterTest, ConvertAndRepairKeepTheViews) {
    const QString map = Map("plan.map");
    Execute(map, {"CREATE TABLE [FilterViews] ([View] TEXT, [Level] TEXT, [Group] TEXT)",
                  "INSERT INTO [FilterViews] SELECT 'Money', NULL, 'Finance'"});
    ASSERT_EQ(Run({"convert", map, Path("copy.map")}), cli::kGood);
    ASSERT_EQ(Run({"repair", map, Path("repaired.map")}), cli::kGood);
    for (const char *name : {"copy.map", "repaired.map"})
        EXPECT_EQ(Number(Path(name), "SELECT COUNT(*) FROM [FilterViews] WHERE [Group]='Finance'"), 1);
}

TEST_F(FilterTest, LeavesNodesOutOfReportsAndPictures) {
    const QString map = Map("new.map");
    Execute(map, {"DELETE FROM [Levels]", "DELETE FROM [Groups]",
                  "INSERT INTO [Levels] ([Level], [Selected], [Colour]) VALUES ('1', 1, 0)",
                  "INSERT INTO [Levels] ([Level], [Selected], [Colour]) VALUES ('2', 1, 0)",
                  "INSERT INTO [Groups] ([Group], [Selected]) VALUES ('G', 1)",
                  "UPDATE [Nodes] SET [Level] = 1, [Group] = 'G', [Description] = 'LevelOne', [Hidden] = 0 "
                  "WHERE [Slice] = 0"});
    const QStringList report = {"report", "--rtf", map, Path("a.rtf"), "--nodes"};
    ASSERT_EQ(Run(report + QStringList{"--filter-levels", "1"}), cli::kGood) << err.toStdString();
    EXPECT_TRUE(support::ReadWholeFile(Path("a.rtf")).contains("LevelOne"));
    ASSERT_EQ(Run(report + QStringList{"--filter-levels", "2"}), cli::kGood);
    EXPECT_FALSE(support::ReadWholeFile(Path("a.rtf")).contains("LevelOne"));
    ASSERT_EQ(Run({"picture", map, Path("a.svg"), "--filter-groups", ""}), cli::kGood);
    EXPECT_FALSE(support::ReadWholeFile(Path("a.svg")).contains("LevelOne"));
    EXPECT_EQ(Run(report + QStringList{"--filter-groups", "H"}), cli::kFailed);
    EXPECT_TRUE(err.contains(QStringLiteral("There is no group 'H'. The map has: G"))) << err.toStdString();
}
