// What all commands have in common, and those that read a map and write it again.
#include "diagram/export/PictureKinds.h"
#include "support/AtomicFile.h"
#include "support/Files.h"
#include "tests/cli/CliTest.h"
#include "tests/EnvironmentVariable.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

namespace {

using cli::testing::kPlan;

struct CommandsTest : cli::testing::CliTest {};

} // namespace

TEST_F(CommandsTest, HelpTellsOfEveryCommand) {
    EXPECT_EQ(Run({"--help"}), cli::kGood);
    for (const char *name : {"info", "check", "repair", "convert", "csv", "import", "layout", "route",
                             "picture", "report", "slides", "print", "recovered", "template"})
        EXPECT_TRUE(out.contains(QStringLiteral("\n  %1 ").arg(QLatin1String(name)))) << name;
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

TEST_F(CommandsTest, ACommandLeavesNothingInTheTemporaryFolder) {
    QTemporaryDir folder;
    const tests::EnvironmentVariable temporary("TMPDIR", folder.path().toLocal8Bit());
    Run({"info", kPlan});
    EXPECT_EQ(qgetenv("TMPDIR"), folder.path().toLocal8Bit());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}
