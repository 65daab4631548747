// Maps of editors that ended before they were saved.
#include "recovery/JournalFile.h"
#include "tests/cli/CliTest.h"

#include <QJsonDocument>

namespace {

struct RecoveredTest : cli::testing::CliTest {};

} // namespace

TEST_F(RecoveredTest, ListsLostMapsAndWritesOneAsANewMap) {
    const QString state = Path("state");
    EXPECT_EQ(Run({"recovered", "--folder", state}), cli::kGood);
    EXPECT_EQ(out, QStringLiteral("nothing is lost\n"));
    EXPECT_EQ(Run({"recovered", "1", Path("out.map"), "--folder", state}), cli::kUsage);
    {
        recovery::JournalFile journal(state);
        recovery::Step step{true, {}, {QDateTime::currentDateTime(), 3, recovery::MapFrame()}};
        step.commit.frame->path = QStringLiteral("/maps/Plan.map");
        step.commit.frame->slices = {{1, 0, QStringLiteral("Only"), {}}};
        step.commit.frame->groups = {{QStringLiteral("{G}"), true, QStringLiteral("Group")}};
        step.commit.frame->levels = {{QStringLiteral("{L}"), 1, true, QStringLiteral("Level")}};
        recovery::SlicePart &part = step.parts.emplace_back();
        part.slice = 1;
        part.whole = true;
        part.nodes.resize(2);
        part.nodes[0].id = 1;
        part.nodes[1].id = 2;
        journal.Write(step);
        EXPECT_EQ(Run({"recovered", "--folder", state}), cli::kGood);
        EXPECT_EQ(out, QStringLiteral("nothing is lost\n")); // the editor still runs
    }
    EXPECT_EQ(Run({"recovered", "--folder", state}), cli::kGood);
    EXPECT_TRUE(out.startsWith(QStringLiteral("1: Plan.map, 3 changes, "))) << out.toStdString();
    EXPECT_TRUE(out.endsWith(QStringLiteral(", /maps/Plan.map\n")));
    EXPECT_EQ(Run({"recovered", "2", Path("out.map"), "--folder", state}), cli::kUsage);
    EXPECT_EQ(Run({"recovered", "1", Path("out.map"), "--folder", state}), cli::kGood) << err.toStdString();
    EXPECT_EQ(Run({"recovered", "1", Path("out.map"), "--folder", state}), cli::kUsage); // is there already
    EXPECT_EQ(Run({"info", Path("out.map"), "--json"}), cli::kGood);
    EXPECT_EQ(QJsonDocument::fromJson(out.toUtf8())["slices"][0]["nodes"].toInt(), 2) << out.toStdString();
    EXPECT_EQ(Run({"recovered", "--folder", state}), cli::kGood);
    EXPECT_TRUE(out.startsWith(QStringLiteral("1: Plan.map"))); // it stays
}
