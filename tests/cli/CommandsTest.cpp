
#include "diagram/export/PictureKinds.h"
#include "document/MapSchema.h"
#include "recovery/JournalFile.h"
#include "storage/Database.h"
#include "support/AtomicFile.h"
#include "support/Files.h"
#include "tests/cli/CliTest.h"
#include "tests/Paths.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

const QString kPlan = tests::Data(QStringLiteral("jet/plan.mdb"));

class CommandsTest : public cli::testing::CliTest {
protected:
    QString Map(const char *name) {
        EXPECT_EQ(Run({"convert", kPlan, Path(name)}), cli::kGood) << err.toStdString();
        return Path(name);
    }

    void Execute(const QString &map, const QStringList &statements) {
        storage::Database database = storage::OpenDatabase(map);
        for (const QString &sql : statements) database.Execute(sql);
    }

    int Number(const QString &map, const QString &sql) {
        storage::Database database = storage::OpenDatabase(map);
        return database.OpenRecordset(sql).Long(0);
    }
    int Slices(const QString &map) { return Number(map, QStringLiteral("SELECT COUNT(*) FROM [Slices]")); }
    int NodesOf(const QString &map, int slice) {
        return Number(map, QStringLiteral("SELECT COUNT(*) FROM [Nodes] WHERE [Slice]=%1").arg(slice));
    }
};

} // namespace

TEST_F(CommandsTest, CsvWritesASliceAndImportReadsItBack) {
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

TEST_F(CommandsTest, ImportAddsToTheSliceAskedFor) {
    const QString map = Map("plan.map");
    ASSERT_EQ(Run({"csv", map, "--slice", "2", Path("out.csv")}), cli::kGood);
    const int nodes = NodesOf(map, 1), slices = Slices(map);
    ASSERT_GT(nodes, 0);
    EXPECT_EQ(Run({"import", Path("out.csv"), map, "--slice", "2"}), cli::kGood) << err.toStdString();
    EXPECT_GE(NodesOf(map, 1), 2 * nodes);
    EXPECT_EQ(Slices(map), slices);
}

TEST_F(CommandsTest, CsvLeavesOutWhatItsFilterHides) {
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

TEST_F(CommandsTest, PicturesHaveTheScaleResolutionAndBackgroundAskedFor) {
    const QString map = Map("plan.map");
    const auto picture = [&](const QStringList &options) {
        EXPECT_EQ(Run(QStringList{"picture", map, Path("a.png")} + options), cli::kGood) << err.toStdString();
        return QImage(Path("a.png"));
    };
    const QImage usual = picture({}), half = picture({"--scale", "50"}),
                 fine = picture({"--dpi", "192", "--background", "transparent"});
    EXPECT_NEAR(half.width(), usual.width() / 2.0, 1);
    EXPECT_NEAR(fine.height(), usual.height() * 2.0, 2);
    EXPECT_NEAR(fine.dotsPerMeterX() * 0.0254, 192, 0.02);
    EXPECT_EQ(fine.pixelColor(0, 0).alpha(), 0);
    EXPECT_FALSE(usual.hasAlphaChannel());
    EXPECT_EQ(picture({"--background", "white", "--pixels", "300"}).pixelColor(0, 0), QColor(Qt::white));
    EXPECT_EQ(Run({"picture", map, "--all", Path("all"), "--scale", "20"}), cli::kGood);
    for (const QStringList &wrong : {QStringList{"--scale", "0"}, {"--dpi", "x"}, {"--background", "red"}})
        EXPECT_EQ(Run(QStringList{"picture", map, Path("a.png")} + wrong), cli::kUsage);
    EXPECT_TRUE(err.contains(QStringLiteral("shown, white, transparent")));
}

TEST_F(CommandsTest, EveryOutputTakesANamedView) {
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

TEST_F(CommandsTest, ConvertAndRepairKeepTheViews) {
    const QString map = Map("plan.map");
    Execute(map, {"CREATE TABLE [FilterViews] ([View] TEXT, [Level] TEXT, [Group] TEXT)",
                  "INSERT INTO [FilterViews] SELECT 'Money', NULL, 'Finance'"});
    ASSERT_EQ(Run({"convert", map, Path("copy.map")}), cli::kGood);
    ASSERT_EQ(Run({"repair", map, Path("repaired.map")}), cli::kGood);
    for (const char *name : {"copy.map", "repaired.map"})
        EXPECT_EQ(Number(Path(name), "SELECT COUNT(*) FROM [FilterViews] WHERE [Group]='Finance'"), 1);
}

TEST_F(CommandsTest, AnImportThatFailsLeavesTheMapAsItWas) {
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

TEST_F(CommandsTest, HelpTellsOfEveryCommand) {
    EXPECT_EQ(Run({"--help"}), cli::kGood);
    for (const char *name : {"info", "check", "repair", "convert", "picture", "report", "slides", "print",
                             "recovered", "csv", "import", "template"})
        EXPECT_TRUE(out.contains(QLatin1String(name)));
}

TEST_F(CommandsTest, HelpTellsOfEveryKindOfPicture) {
    EXPECT_EQ(Run({"--help"}), cli::kGood);
    for (const QString &ending : diagram::PictureEndings())
        EXPECT_TRUE(out.contains(QStringLiteral("OUT.") + ending)) << ending.toStdString();
    EXPECT_TRUE(out.contains(diagram::PictureEndings().join(u'|')));
}

TEST_F(CommandsTest, AMisunderstoodCommandLineIsOneLineAndEndsWithTwo) {
    for (const QStringList &arguments : {QStringList{},
                                         {"fly"},
                                         {"info"},
                                         {"info", "a", "b"},
                                         {"info", "a", "--fast"},
                                         {"picture", "a", "b.png", "--slice"},
                                         {"picture", "a", "b.png", "--slice", "0"},
                                         {"picture", "a", "--all", "x", "--format", "gif"},
                                         {"info", ""},
                                         {"convert", "a", ""},
                                         {"picture", "a", "--all", ""},
                                         {"picture", "a", "b.png", "--filter-levels"},
                                         {"report", "a", "b.rtf"},
                                         {"report", "a", "b.rtf", "--rtf", "--html"},
                                         {"report", "a", "--rtf"},
                                         {"report", "a", "b.rtf", "--rtf", "--details"},
                                         {"report", "a", "b.rtf", "--rtf", "--slice", "1", "--all"},
                                         {"report", "a", "b.rtf", "--rtf", "--slice", "0"},
                                         {"convert", "a"},
                                         {"repair", "a"},
                                         {"template"},
                                         {"template", "fly"},
                                         {"template", "list", "a"},
                                         {"template", "apply", "a"},
                                         {"template", "make", "a", "b", "--slice", "0"},
                                         {"print", "a"},
                                         {"print", "a", "--to"},
                                         {"print", "a", "--to", "b.pdf", "--slice", "0"},
                                         {"print", "a", "--to", "b.pdf", "--slice", "x"},
                                         {"print", "a", "--to", "b.pdf", "--slice", "1", "--all"},
                                         {"print", "a", "--to", "b.pdf", "--slice", "40000"},
                                         {"print", "--to", "b.pdf"}}) {
        EXPECT_EQ(Run(arguments), cli::kUsage) << arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_EQ(err.count(QLatin1Char('\n')), 1);
        EXPECT_TRUE(out.isEmpty());
    }
}

TEST_F(CommandsTest, AnErrorIsOneLineAndEndsWithOne) {
    EXPECT_EQ(Run({"info", Path("missing.map")}), cli::kFailed);
    EXPECT_TRUE(err.contains(QStringLiteral("missing.map")));
    EXPECT_TRUE(err.contains(QStringLiteral("#3024")));
    EXPECT_EQ(err.count(QLatin1Char('\n')), 1);
}

TEST_F(CommandsTest, EachThingThatCannotBeReadOrWrittenIsOneLine) {
    const QString map = Map("plan.map"), cut = Path("cut.map"), text = Path("text.map");
    const auto write = [](const QString &path, const QByteArray &bytes) {
        support::AtomicFile file(path);
        file.Write(bytes);
        file.Commit();
    };
    write(cut, support::ReadWholeFile(map).left(20000));
    write(text, "no database at all, and never was one");
    const std::pair<QStringList, const char *> rows[] = {
        {{"info", Path(".")}, "#3051"},
        {{"info", text}, "#3343"},
        {{"info", cut}, "#3049"},
        {{"check", text}, "#3343"},
        {{"check", Path("missing.map")}, "#3024"},
        {{"repair", text, Path("new.map")}, "#3343"},
        {{"repair", map, Path("no/folder/new.map")}, "#76"},
        {{"convert", Path("missing.map"), Path("new.map")}, "#3024"},
        {{"convert", map, Path(".")}, "#75"},
        {{"convert", map, Path("no/folder/new.map")}, "#76"},
        {{"picture", map, Path("no/folder/new.png")}, "#76"},
        {{"picture", map, Path("no/folder/new.svg")}, "#76"},
        {{"picture", map, Path("no/folder/new.pdf")}, "#76"},
        {{"picture", map, "--all", text}, "#75"},
    };
    for (const auto &[arguments, number] : rows) {
        EXPECT_EQ(Run(arguments), cli::kFailed) << arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_TRUE(err.contains(QLatin1String(number))) << err.toStdString();
        EXPECT_EQ(err.count(QLatin1Char('\n')), 1);
        EXPECT_TRUE(out.isEmpty());
    }
    EXPECT_FALSE(support::FileExists(Path("new.map")));
}

TEST_F(CommandsTest, InfoCountsWhatTheMapHolds) {
    EXPECT_EQ(Run({"info", kPlan, "--json"}), cli::kGood) << err.toStdString();
    const QJsonObject map = QJsonDocument::fromJson(out.toUtf8()).object();
    const QJsonArray slices = map["slices"].toArray();
    ASSERT_EQ(slices.size(), 3);
    int nodes = 0, links = 0;
    for (const auto &slice : slices) {
        nodes += slice.toObject()["nodes"].toInt();
        links += slice.toObject()["links"].toInt();
    }
    EXPECT_EQ(nodes, 64);
    EXPECT_EQ(links, 70);
    EXPECT_EQ(slices[2].toObject()["name"].toString(), "Roadmap");
    EXPECT_EQ(map["fonts"].toArray().size(), 5);
    EXPECT_EQ(map["levels"].toArray().size(), 4);
    EXPECT_EQ(map["groups"].toArray().size(), 5);
    EXPECT_EQ(map["hyperlinks"].toArray().size(), 3);
    EXPECT_EQ(map["attachments"].toArray().size(), 2);
    EXPECT_EQ(Run({"info", kPlan}), cli::kGood);
    EXPECT_TRUE(out.contains(QStringLiteral("slice 3 'Roadmap'")));
}

TEST_F(CommandsTest, ConvertWritesAMapThatSaysTheSame) {
    const QString map = Map("plan.map");
    EXPECT_TRUE(support::ReadWholeFile(map).startsWith("SQLite format 3"));
    Run({"info", kPlan, "--json"});
    const QJsonObject before = QJsonDocument::fromJson(out.toUtf8()).object();
    Run({"info", map, "--json"});
    const QJsonObject after = QJsonDocument::fromJson(out.toUtf8()).object();
    for (const char *part : {"slices", "fonts", "levels", "groups", "hyperlinks"})
        EXPECT_EQ(before[QLatin1String(part)], after[QLatin1String(part)]) << part;
    EXPECT_EQ(Run({"convert", kPlan, map}), cli::kGood);
    EXPECT_EQ(out, "The former file was kept as plan.map.bak\n");
}

TEST_F(CommandsTest, CheckTellsWhatIsWrongWithEachCell) {
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

TEST_F(CommandsTest, CheckTellsWhatIsWrongWithAMapThatDoesNotLoad) {
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

TEST_F(CommandsTest, CheckFindsNothingWrongWithAMapWithoutPicturesOrWithoutAnything) {
    for (const char *name : {"empty.map", "one.map"}) {
        document::CreateEmptyMap(Path(name));
        if (QByteArray(name) == "one.map")
            Execute(Path(name), {"INSERT INTO [Slices] ([Index], [Text]) VALUES (0, 's')",
                                 "INSERT INTO [Nodes] ([Key], [Slice]) VALUES ('n', 0)"});
        EXPECT_EQ(Run({"check", Path(name)}), cli::kGood) << err.toStdString();
        EXPECT_EQ(out, "nothing wrong\n");
    }
}

TEST_F(CommandsTest, AnOldMapIsReadAndStaysAsItIs) {
    const QString map = Map("plan.map");
    Execute(map, {"ALTER TABLE [Nodes] DROP COLUMN [Alignment]", "ALTER TABLE [Slices] DROP COLUMN [xZoom]",
                  "ALTER TABLE [Slices] DROP COLUMN [yZoom]"});
    const QByteArray before = support::ReadWholeFile(map);
    EXPECT_EQ(Run({"check", map}), cli::kGood) << err.toStdString() << out.toStdString();
    EXPECT_EQ(out, "nothing wrong\n");
    EXPECT_EQ(Run({"info", map, "--json"}), cli::kGood) << err.toStdString();
    const QJsonObject info = QJsonDocument::fromJson(out.toUtf8()).object();
    EXPECT_EQ(info["file"].toString(), map);
    EXPECT_EQ(info["slices"].toArray().size(), 3);
    EXPECT_EQ(Run({"picture", map, Path("one.svg")}), cli::kGood) << err.toStdString();
    EXPECT_EQ(support::ReadWholeFile(map), before);
}

TEST_F(CommandsTest, RepairWritesAMapThatLoadsAndTellsOfEachChange) {
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

TEST_F(CommandsTest, PictureRefusesAnUnknownEndingBeforeItLoads) {
    EXPECT_EQ(Run({"picture", Path("missing.map"), Path("x.doc")}), cli::kFailed);
    EXPECT_TRUE(err.contains(QStringLiteral("Unknown kind of picture"))) << err.toStdString();
}

TEST_F(CommandsTest, PictureWritesOneSliceInEachForm) {
    const QString map = Map("plan.map");
    EXPECT_EQ(Run({"picture", map, "--slice", "2", "--pixels", "500", Path("two.png")}), cli::kGood)
        << err.toStdString();
    const QImage image(Path("two.png"));
    EXPECT_EQ(std::max(image.width(), image.height()), 500);
    EXPECT_EQ(Run({"picture", map, Path("one.svg")}), cli::kGood) << err.toStdString();
    EXPECT_TRUE(support::ReadWholeFile(Path("one.svg")).contains("<svg"));
    EXPECT_EQ(Run({"picture", map, Path("one.wmf")}), cli::kGood) << err.toStdString();
    EXPECT_TRUE(support::ReadWholeFile(Path("one.wmf")).startsWith("\xD7\xCD\xC6\x9A"));
    EXPECT_EQ(Run({"picture", map, Path("one.emf")}), cli::kGood) << err.toStdString();
    EXPECT_EQ(support::ReadWholeFile(Path("one.emf")).mid(40, 4), " EMF");
    EXPECT_EQ(Run({"picture", map, Path("one.pdf")}), cli::kGood) << err.toStdString();
    EXPECT_TRUE(support::ReadWholeFile(Path("one.pdf")).startsWith("%PDF"));
}

TEST_F(CommandsTest, PictureOfAMissingSliceOrFormIsAnError) {
    const QString map = Map("plan.map");
    EXPECT_EQ(Run({"picture", map, "--slice", "4", Path("x.png")}), cli::kFailed);
    EXPECT_TRUE(err.contains(QStringLiteral("the map has 3")));
    EXPECT_EQ(Run({"picture", map, Path("x.doc")}), cli::kFailed);
    EXPECT_FALSE(support::FileExists(Path("x.doc")));
}

TEST_F(CommandsTest, PictureOfAllSlicesNamesThemAfterTheirTabs) {
    EXPECT_EQ(Run({"picture", kPlan, "--all", Path("pictures"), "--format", "svg"}), cli::kGood)
        << err.toStdString();
    const QStringList files = QDir(Path("pictures")).entryList(QDir::Files);
    ASSERT_EQ(files.size(), 3);
    EXPECT_EQ(files[2], "03-Roadmap.svg");
}

TEST_F(CommandsTest, RecoveredListsLostMapsAndWritesOneAsANewMap) {
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

TEST_F(CommandsTest, ACommandLeavesNothingInTheTemporaryFolder) {
    QTemporaryDir folder;
    qputenv("TMPDIR", folder.path().toLocal8Bit());
    Run({"info", kPlan});
    EXPECT_EQ(qgetenv("TMPDIR"), folder.path().toLocal8Bit());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    qunsetenv("TMPDIR");
}

TEST_F(CommandsTest, ASliceMadeATemplateCanBeAppliedAndListed) {
    const QString map = Map("plan.map"), target = Map("target.map");
    support::CopyFileTo(tests::Source(QStringLiteral("product/velmora/Settings.nml")), Path("Settings.nml"));
    QDir(Path("")).mkdir(QStringLiteral("Templates"));
    const QString file = Path("Templates/Plan.TEM");
    ASSERT_EQ(Run({"template", "make", map, "--slice", "2", file}), cli::kGood) << err.toStdString();
    ASSERT_EQ(Run({"template", "list"}), cli::kGood) << err.toStdString();
    EXPECT_TRUE(out.contains(QStringLiteral("  template  Plan  "))) << out.toStdString();
    ASSERT_EQ(Run({"template", "apply", file, target, "--slice", "1"}), cli::kGood) << err.toStdString();
    const auto nodes = [this](const QString &path, int slice) {
        EXPECT_EQ(Run({"info", path, "--json"}), cli::kGood);
        const QJsonObject whole = QJsonDocument::fromJson(out.toUtf8()).object();
        return whole["slices"].toArray()[slice].toObject()["nodes"].toInt();
    };
    EXPECT_EQ(nodes(target, 0), nodes(map, 1)) << out.toStdString();
    EXPECT_EQ(nodes(target, 1), nodes(map, 1));
}

TEST_F(CommandsTest, ABadTemplateOrSliceLeavesTheMapAsItWas) {
    const QString map = Map("plan.map");
    const QByteArray before = support::ReadWholeFile(map);
    EXPECT_EQ(Run({"template", "apply", map, map}), cli::kFailed);
    EXPECT_TRUE(err.contains(QStringLiteral("#3078"))) << err.toStdString();
    EXPECT_EQ(Run({"template", "apply", tests::Data(QStringLiteral("jet/template.mdb")), map}), cli::kFailed);
    EXPECT_TRUE(err.contains(QStringLiteral("#321"))) << err.toStdString();
    EXPECT_EQ(Run({"template", "make", map, "--slice", "9", Path("out.TEM")}), cli::kFailed);
    EXPECT_FALSE(support::FileExists(Path("out.TEM")));
    EXPECT_EQ(support::ReadWholeFile(map), before);
}

TEST_F(CommandsTest, ReportWritesRichTextOfOneSliceOrOfAll) {
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

TEST_F(CommandsTest, ReportWritesAPageForEachSlice) {
    QFile::copy(tests::Source(QStringLiteral("product/velmora/Default.htm")), Path("Default.htm"));
    const QString map = Map("new.map");
    ASSERT_EQ(Run({"report", "--html", map, Path("a.htm"), "--all", "--nodes"}), cli::kGood)
        << err.toStdString();
    for (const char *name : {"a.htm", "a_-1.htm", "a_0.htm", "a_1.htm", "a_2.htm"})
        EXPECT_TRUE(support::FileExists(Path(name)));
    ASSERT_EQ(Run({"report", "--html", map, Path("b"), "--nodes"}), cli::kGood);
    EXPECT_TRUE(support::FileExists(Path("b.htm"))) << "a name without an ending gets one";
}

TEST_F(CommandsTest, TheFilterLeavesNodesOutOfReportsAndPictures) {
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

namespace {

// "pdfinfo" or "pdftotext" of the first page.
QString Ask(const QString &program, const QStringList &arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0) << qPrintable(program);
    return QString::fromUtf8(process.readAllStandardOutput()).simplified();
}

} // namespace

TEST_F(CommandsTest, PrintWritesThePagesOfASliceOrOfAll) {
    const QString map = Map("plan.map"), pdf = Path("plan.pdf");
    ASSERT_EQ(Run({"print", map, "--to", pdf, "--slice", "3", "--fit", "--header", "&[Title] R&d", "--footer",
                   "&[Slice] &[Page]/&[Pages]"}),
              cli::kGood)
        << err.toStdString();
    EXPECT_TRUE(out.startsWith(QStringLiteral("1 page went to "))) << out.toStdString();
    const QString text = Ask("pdftotext", {pdf, "-"});
    EXPECT_TRUE(text.contains(QStringLiteral("plan R&d")));
    EXPECT_TRUE(text.contains(QStringLiteral("Roadmap 1/1")));
    ASSERT_EQ(Run({"print", map, "--to", pdf, "--all", "--fit", "--landscape"}), cli::kGood);
    const QString info = Ask("pdfinfo", {pdf});
    EXPECT_TRUE(info.contains(QStringLiteral("Pages: 3"))) << info.toStdString();
    EXPECT_TRUE(info.contains(QRegularExpression(QStringLiteral("Page size: (842|841\\.\\d+|792) x "))));
    ASSERT_EQ(Run({"print", map, "--to", pdf, "--all"}), cli::kGood);
    EXPECT_TRUE(out.startsWith(QStringLiteral("6 pages went to ")));
    const auto words = [&](const QStringList &filter) {
        EXPECT_EQ(Run(QStringList{"print", map, "--to", pdf, "--fit"} + filter), cli::kGood)
            << err.toStdString();
        return Ask("pdftotext", {pdf, "-"});
    };
    EXPECT_LT(words({"--filter-groups", "Finance"}).size(), words({}).size());
}

TEST_F(CommandsTest, PrintFailsForASliceThatIsNotThereAndLeavesTheFile) {
    const QString map = Map("plan.map"), pdf = Path("plan.pdf");
    EXPECT_EQ(Run({"print", map, "--to", pdf, "--slice", "9"}), cli::kFailed);
    EXPECT_TRUE(err.contains(QStringLiteral("Slice 9 does not exist; the map has 3")));
    EXPECT_FALSE(QFile::exists(pdf));
    EXPECT_EQ(Run({"print", map, "--to", Path("missing/plan.pdf")}), cli::kFailed);
    EXPECT_EQ(err.count(QLatin1Char('\n')), 1);
}
