#include "output/csv/ExportMap.h"

#include "diagram/model/Surface.h"
#include "document/ItemColumns.h"
#include "document/Tags.h"
#include "document/UnsavedWork.h"
#include "support/Error.h"
#include "support/Files.h"
#include "tests/document/Slices.h"
#include "tests/output/csv/CsvTest.h"
#include "tests/Paths.h"

#include <QFile>

namespace output::testing {

namespace {

const QString kQuestion =
    QStringLiteral("This operation requirers the Map to be saved.\r\rSave changes and continue?");

} // namespace

TEST_F(CsvTest, ExportOfAnUnsavedMapAnsweredWithNoWritesNoFile) {
    AddNode(QStringLiteral("Idea"));
    desktop.ExpectMessage(kQuestion, support::Answer::No);
    Export();
    EXPECT_FALSE(support::FileExists(file));
    EXPECT_EQ(window->statuses.last(), QString());
    EXPECT_EQ(desktop.messageBoxes.shown.at(0).buttons, support::Buttons::YesNo);
    EXPECT_EQ(desktop.messageBoxes.shown.at(0).icon, support::Icon::Question);
}

TEST_F(CsvTest, ExportAnsweredWithYesSavesFirst) {
    Save();
    AddNode(QStringLiteral("Idea"));
    window->clsSettings().Dirty = true;
    desktop.ExpectMessage(kQuestion, support::Answer::Yes);
    Export();
    EXPECT_FALSE(window->clsSettings().Dirty);
    ASSERT_EQ(Read().rows.size(), 1);
    EXPECT_EQ(Read().Cell(0, "Description"), QStringLiteral("Idea"));
}

TEST_F(CsvTest, ExportAsksAboutWorkThatDirtyDoesNotKnow) {
    Save();
    AddNode(QStringLiteral("Idea"));
    ASSERT_FALSE(window->clsSettings().Dirty);
    desktop.ExpectMessage(kQuestion, support::Answer::No);
    Export();
    EXPECT_FALSE(support::FileExists(file));
}

TEST_F(CsvTest, ExportOfANewMapWhoseSaveIsCancelledWritesNoFile) {
    AddNode(QStringLiteral("Idea"));
    desktop.ExpectMessage(kQuestion, support::Answer::Yes);
    desktop.ExpectSaveFile(QString());
    Export();
    EXPECT_FALSE(support::FileExists(file));
}

TEST_F(CsvTest, ExportOfASliceWithoutNodesHasTheHeaderAlone) {
    Save();
    Export();
    EXPECT_EQ(Bytes().count('\n'), 1);
    EXPECT_TRUE(Bytes().startsWith("\xEF\xBB\xBFType, Key, Top, Left, Height, Width, "));
    EXPECT_EQ(Read().rows.size(), 0);
}

TEST_F(CsvTest, TheHeaderIsTypeThenNodesThenWhatLinksHaveBesides) {
    Save();
    Export();
    QStringList expected{"type"};
    for (const document::TableLayout *table : {&document::schema::kNodes, &document::schema::kLinks})
        for (const document::ColumnDef &column : table->columns) {
            const QString name = QString::fromLatin1(column.name).toLower();
            if (!expected.contains(name)) expected.append(name);
        }
    EXPECT_EQ(Read().names, expected);
}

TEST_F(CsvTest, ExportHasTheNodesFirstAndThenTheLinks) {
    diagram::Node &a = AddNode(QStringLiteral("A")), &b = AddNode(QStringLiteral("B"), 3000);
    a.Links().Add(b).SetText(QStringLiteral("leads to"));
    Save();
    Export();
    const Table table = Read();
    ASSERT_EQ(table.rows.size(), 3);
    EXPECT_EQ(table.Cell(0, "Type"), QStringLiteral("Node"));
    EXPECT_EQ(table.Cell(1, "Type"), QStringLiteral("Node"));
    EXPECT_EQ(table.Cell(2, "Type"), QStringLiteral("Link"));
    EXPECT_EQ(table.Cell(2, "KeySource"), a.Key());
    EXPECT_EQ(table.Cell(2, "KeyDest"), b.Key());
    EXPECT_EQ(table.Cell(2, "Text"), QStringLiteral("leads to"));
    EXPECT_EQ(table.Cell(2, "Description"), QString());
    EXPECT_EQ(table.Cell(1, "Left"), QStringLiteral("3000"));
}

TEST_F(CsvTest, ExportHasTheSliceAskedForAlone) {
    AddNode(QStringLiteral("First"));
    diagram::Surface &second = document::testing::AddSlice(*window);
    second.Nodes().Add(0, 0, 10, 10).SetText(QStringLiteral("Second"));
    Save();
    ExportMap(*window, second, file);
    ASSERT_EQ(Read().rows.size(), 1);
    EXPECT_EQ(Read().Cell(0, "Description"), QStringLiteral("Second"));
}

TEST_F(CsvTest, ExportIsWholeWhateverIsHidden) {
    AddNode(QStringLiteral("Seen"));
    AddNode(QStringLiteral("Hidden")).SetHidden(true);
    Save();
    Export();
    ASSERT_EQ(Read().rows.size(), 2);
    EXPECT_EQ(Read().Cell(1, "Hidden"), QStringLiteral("1"));
}

TEST_F(CsvTest, ExportLeavesOutTheNodesNamedAndTheirLinks) {
    diagram::Node &a = AddNode(QStringLiteral("A")), &b = AddNode(QStringLiteral("B")),
                  &c = AddNode(QStringLiteral("C"));
    a.Links().Add(b);
    b.Links().Add(c);
    a.Links().Add(c);
    Save();
    ExportMap(*window, *flow, file, {b.Key()});
    const Table table = Read();
    ASSERT_EQ(table.rows.size(), 3);
    EXPECT_EQ(table.Cell(1, "Description"), QStringLiteral("C"));
    EXPECT_EQ(table.Cell(2, "KeyDest"), c.Key());
}

TEST_F(CsvTest, ExportTellsItsStepsAndWhatIsLeftOut) {
    AddNode(QStringLiteral("A"));
    Save();
    window->statuses.clear();
    Export();
    EXPECT_EQ(
        window->statuses,
        (QStringList{NotInTextFiles(), QString(), QStringLiteral("Creating output file..."),
                     QStringLiteral("Filling output file..."), QStringLiteral("Finishing..."), QString()}));
    EXPECT_EQ(window->pointers.back(), document::pointer::kNormal);
    EXPECT_EQ(window->progress.back(), 0);
}

TEST_F(CsvTest, ExportGivesTextsThatBeginLikeAFormulaAMark) {
    AddNode(QStringLiteral("=1+1"));
    Save();
    Export();
    EXPECT_EQ(Read().Cell(0, "Description"), QStringLiteral("'=1+1"));
}

TEST_F(CsvTest, ExportReplacesTheFileAsAWhole) {
    AddNode(QStringLiteral("A"));
    Save();
    const QByteArray former = "what was there" + QByteArray(5000, 'x'); // longer than what follows
    WriteBytes(former);
    Export();
    EXPECT_LT(Bytes().size(), former.size());
    EXPECT_FALSE(Bytes().contains("xxx")) << "nothing is left of it";
    EXPECT_EQ(MapFiles(), (QStringList{"out.csv", "plan.map"}));
}

TEST_F(CsvTest, ExportWithoutAFolderOrOntoAFolderRaisesAndLeavesNothing) {
    Save();
    const auto exportTo = [&](const QString &target) {
        return ErrorOf([&] { ExportMap(*window, *flow, target); }).Number();
    };
    EXPECT_EQ(exportTo(MapFile("none/out.csv")), support::kErrPathNotFound);
    EXPECT_EQ(exportTo(MapFile(QString())), support::kErrPathFileAccess);
    EXPECT_EQ(exportTo(MapFile("plan.map")), support::kErrPathFileAccess) << "the map itself";
    EXPECT_EQ(MapFiles(), QStringList{"plan.map"});
    EXPECT_EQ(window->statuses.last(), QString());
}

TEST_F(CsvTest, ExportOntoAReadOnlyFileRaisesAndKeepsIt) {
    Save();
    WriteBytes("mine");
    QFile::setPermissions(file, QFileDevice::ReadOwner | QFileDevice::ReadUser);
    EXPECT_EQ(ErrorOf([&] { Export(); }).Number(), support::kErrPathFileAccess);
    EXPECT_EQ(Bytes(), "mine");
    EXPECT_EQ(MapFiles(), (QStringList{"out.csv", "plan.map"}));
}

TEST_F(CsvTest, ExportOfAMapWhoseFileHasGoneRaisesItsError) {
    Save();
    support::Kill(MapFile("plan.map"));
    const support::Error error = ErrorOf([&] { Export(); });
    EXPECT_EQ(error.Number(), storage::kErrFileNotFound);
    EXPECT_TRUE(error.Source().contains(QStringLiteral("ExportMap")));
    EXPECT_FALSE(support::FileExists(file));
}

TEST_F(CsvTest, ExportOfAnEarlyMapHasTheColumnsThatOpeningItAdds) {
    SaveAs(*Loaded(tests::Data("map/old.map")), MapFile("copy.map"));
    Run(MapFile("copy.map"), QStringLiteral("ALTER TABLE [Nodes] DROP COLUMN [Alignment]"));
    window->clsSettings().SetDatabase(MapFile("copy.map"));
    document::MarkSaved(*window);
    Export();
    EXPECT_TRUE(Read().names.contains("alignment"));
    EXPECT_GT(Read().rows.size(), 0);
}

TEST_F(CsvTest, AnExportThatIsGivenUpLeavesTheFormerFile) {
    for (int i = 0; i < 300; ++i) AddNode(QStringLiteral("Idea"));
    Save();
    WriteBytes("old");
    EXPECT_FALSE(ExportMap(*window, *flow, file, {}, [] { return false; }));
    EXPECT_EQ(Bytes(), "old");
    EXPECT_EQ(MapFiles().filter(QStringLiteral(".new")), QStringList());
    EXPECT_EQ(window->statuses.last(), QString());
    EXPECT_EQ(window->progress.back(), 0);
    EXPECT_TRUE(ExportMap(*window, *flow, file, {}, [] { return true; }));
    EXPECT_EQ(Read().rows.size(), 300);
}

} // namespace output::testing
