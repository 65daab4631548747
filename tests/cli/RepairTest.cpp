// Damaged maps: what is told of them, and what is made of them.
#include "document/MapSchema.h"
#include "support/AtomicFile.h"
#include "tests/cli/CliTest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

using cli::testing::kPlan;

struct RepairTest : cli::testing::CliTest {};

} // namespace

TEST_F(RepairTest, CheckTellsWhatIsWrongWithEachCell) {
    const QString map = Map("plan.map");
    EXPECT_EQ(Run({"check", map}), cli::kGood) << out.toStdString();
    EXPECT_EQ(out, "nothing wrong\n");
    Execute(map, {"INSERT INTO [Nodes] ([Key], [Slice]) VALUES ('x', 77)",
                  "INSERT INTO [LinkPoints] VALUES (0, 'no link', 1, 1)",
                  "UPDATE [Nodes] SET [Left]='far', [Width]=1e30, [Shape]=99, [Font]='none' WHERE [Key]='x'",
                  "UPDATE [Slices] SET [Picture]='gone' WHERE [Index]=0",
                  "INSERT INTO [Pictures] VALUES ('p', x'00112233')",
                  "INSERT INTO [Hyperlinks] VALUES ('x', '', 1, 'nobody')"});
    const QByteArray before = support::ReadWholeFile(map);
    EXPECT_EQ(Run({"check", map}), cli::kFailed);
    EXPECT_EQ(out.toStdString(), "Nodes x, Left: 'far' is no number\n"
                                 "Nodes x, Width: 1e+30 is out of range\n"
                                 "Nodes x, Shape: 99 is out of range\n"
                                 "Pictures p, Picture: 4 bytes that are no picture\n"
                                 "Nodes x, Slice: there is no slice 77\n"
                                 "Nodes x, Font: there is no 'none'\n"
                                 "Slices 0, Picture: there is no 'gone'\n"
                                 "LinkPoints no link: 1 points of a link that does not exist\n"
                                 "Hyperlinks x, Node: there is no node 'nobody'\n");
    EXPECT_EQ(support::ReadWholeFile(map), before);
}

TEST_F(RepairTest, CheckTellsWhatIsWrongWithAMapThatDoesNotLoad) {
    const QString map = Map("plan.map");
    Execute(map, {"UPDATE [Nodes] SET [Left]='far' WHERE [Slice]=0"});
    EXPECT_EQ(Run({"check", map}), cli::kFailed);
    EXPECT_TRUE(out.contains(QStringLiteral(", Left: 'far' is no number")));
    EXPECT_EQ(err, "velmora-cli: Type mismatch (Error #13)\n");
    Execute(map, {"DROP TABLE [Links]"});
    EXPECT_EQ(Run({"check", map}), cli::kFailed);
    EXPECT_TRUE(out.contains(QStringLiteral("Links: the table cannot be read")));
    EXPECT_EQ(err.count(QLatin1Char('\n')), 1);
}

TEST_F(RepairTest, CheckFindsNothingWrongWithAMapWithoutPicturesOrWithoutAnything) {
    for (const char *name : {"empty.map", "one.map"}) {
        document::CreateEmptyMap(Path(name));
        if (QByteArray(name) == "one.map")
            Execute(Path(name), {"INSERT INTO [Slices] ([Index], [Text]) VALUES (0, 's')",
                                 "INSERT INTO [Nodes] ([Key], [Slice]) VALUES ('n', 0)"});
        EXPECT_EQ(Run({"check", Path(name)}), cli::kGood) << err.toStdString();
        EXPECT_EQ(out, "nothing wrong\n");
    }
}

TEST_F(RepairTest, RepairWritesAMapThatLoadsAndTellsOfEachChange) {
    const QString map = Map("plan.map");
    Execute(map,
            {"UPDATE [Nodes] SET [Width]=1e30 WHERE rowid=1", "UPDATE [Nodes] SET [Slice]=9 WHERE rowid=2"});
    EXPECT_EQ(Run({"info", map}), cli::kFailed);
    EXPECT_EQ(Run({"repair", map, Path("good.map")}), cli::kGood) << err.toStdString();
    EXPECT_TRUE(out.contains(QStringLiteral(", Width: 1e+30 is out of range; set to 100000000\n")));
    EXPECT_TRUE(out.contains(QStringLiteral("there is no slice 9; kept on the slice of loose items\n")));
    EXPECT_EQ(Run({"check", Path("good.map")}), cli::kGood) << out.toStdString();
    Run({"info", Path("good.map"), "--json"});
    const QJsonArray slices = QJsonDocument::fromJson(out.toUtf8()).object()["slices"].toArray();
    ASSERT_EQ(slices.size(), 4);
    EXPECT_EQ(slices[3].toObject()["name"].toString(), "Loose items");
    // A sound one comes out as it is; the former file is kept.
    EXPECT_EQ(Run({"repair", kPlan, Path("good.map")}), cli::kGood);
    EXPECT_EQ(out, "nothing wrong\nThe former file was kept as good.map.bak\n");
    EXPECT_EQ(Run({"repair", Path("good.map"), Path("good.map")}), cli::kGood) << "onto itself";
}
