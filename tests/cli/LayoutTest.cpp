// Layouts and routes from the command line.
#include "storage/Database.h"
#include "tests/cli/CliTest.h"

#include <QFile>

namespace {

using Rows = std::vector<std::vector<double>>;

class LayoutCommandTest : public cli::testing::CliTest {
protected:
    static Rows Read(const QString &map, const QString &sql, int columns) {
        storage::Database database = storage::OpenDatabase(map);
        Rows rows;
        for (storage::Recordset set = database.OpenRecordset(sql); !set.EndOfFile(); set.MoveNext()) {
            rows.emplace_back();
            for (int i = 0; i < columns; ++i) rows.back().push_back(set.Double(i));
        }
        return rows;
    }
    static Rows Places(const QString &map, int slice) {
        return Read(
            map,
            QStringLiteral("SELECT [Left],[Top],[Width],[Height] FROM [Nodes] WHERE [Slice]=%1").arg(slice),
            4);
    }

    QString plan = Map("plan.map"), tidy = Path("tidy.map");
};

} // namespace

TEST_F(LayoutCommandTest, EveryEngineWritesTheSliceLaidOutAndNothingElse) {
    const Rows before = Places(plan, 0), others = Places(plan, 1);
    for (const char *engine : {"hierarchical", "tree", "radial", "organic", "circular", "levels"}) {
        ASSERT_EQ(Run({"layout", plan, tidy, "--engine", engine}), cli::kGood) << err.toStdString();
        const Rows after = Places(tidy, 0);
        ASSERT_EQ(after.size(), before.size()) << engine;
        EXPECT_NE(after, before) << engine;
        EXPECT_EQ(Places(tidy, 1), others) << engine;
        EXPECT_EQ(Places(plan, 0), before) << engine << ": the map itself stays";
    }
}

TEST_F(LayoutCommandTest, ASliceAndADirectionCanBeTold) {
    const Rows first = Places(plan, 0);
    ASSERT_EQ(Run({"layout", plan, tidy, "--engine", "tree", "--slice", "2"}), cli::kGood)
        << err.toStdString();
    EXPECT_EQ(Places(tidy, 0), first);
    const Rows down = Places(tidy, 1);
    ASSERT_EQ(Run({"layout", plan, tidy, "--engine", "tree", "--slice", "2", "--direction", "right"}),
              cli::kGood);
    EXPECT_NE(Places(tidy, 1), down);
}

TEST_F(LayoutCommandTest, TheSameMapIsLaidOutTheSame) {
    ASSERT_EQ(Run({"layout", plan, tidy, "--engine", "organic"}), cli::kGood);
    ASSERT_EQ(Run({"layout", plan, Path("again.map"), "--engine", "organic"}), cli::kGood);
    EXPECT_EQ(Places(tidy, 0), Places(Path("again.map"), 0));
}

TEST_F(LayoutCommandTest, LevelsAndGroupsAreKeptTogetherOnWish) {
    for (const char *together : {"levels", "groups"})
        EXPECT_EQ(Run({"layout", plan, tidy, "--engine", "hierarchical", "--together", together}), cli::kGood)
            << err.toStdString();
    EXPECT_EQ(Run({"layout", plan, tidy, "--engine", "hierarchical", "--together", "friends"}), cli::kUsage);
    EXPECT_TRUE(err.contains(QStringLiteral("--together needs one of levels, groups")));
}

TEST_F(LayoutCommandTest, WhatIsNotUnderstoodIsTold) {
    EXPECT_EQ(Run({"layout", plan, tidy}), cli::kUsage);
    EXPECT_TRUE(err.contains(QStringLiteral("--engine needs one of hierarchical, tree, radial")));
    EXPECT_EQ(Run({"layout", plan, tidy, "--engine", "star"}), cli::kUsage);
    EXPECT_EQ(Run({"layout", plan, tidy, "--engine", "tree", "--direction", "north"}), cli::kUsage);
    EXPECT_TRUE(err.contains(QStringLiteral("--direction needs one of down, up, right, left")));
    EXPECT_EQ(Run({"layout", plan, "--engine", "tree"}), cli::kUsage);
    EXPECT_EQ(Run({"layout", plan, tidy, "--engine", "tree", "--slice", "99"}), cli::kFailed);
    EXPECT_EQ(Run({"route", plan}), cli::kUsage);
    EXPECT_FALSE(QFile::exists(tidy));
}

TEST_F(LayoutCommandTest, RouteKeepsNodesAndIsDoneAfterTheFirstTime) {
    ASSERT_EQ(Run({"route", plan, tidy}), cli::kGood) << err.toStdString();
    EXPECT_EQ(Places(tidy, 0), Places(plan, 0));
    ASSERT_EQ(Run({"route", tidy, Path("again.map")}), cli::kGood);
    EXPECT_EQ(out, QStringLiteral("0 links go another way\n"));
}
