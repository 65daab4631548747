#include "document/OpenMap.h"

#include "document/CompactDb.h"
#include "document/ItemColumns.h"
#include "document/LastPath.h"
#include "document/TemplateFile.h"
#include "storage/Fields.h"
#include "support/AtomicFile.h"
#include "support/Files.h"
#include "tests/document/MapTest.h"

#include <QFile>

using namespace document;
using namespace document::testing;

class OpenMapTest : public MapTest {
protected:
    // A map as early versions wrote it: without the columns named.
    QString OldMap(const QString &name, const QStringList &nodeColumns, const QStringList &sliceColumns) {
        const QString path = EmptyMap(name);
        for (const QString &column : nodeColumns)
            Run(path, "ALTER TABLE [Nodes] DROP COLUMN [" + column + "]");
        for (const QString &column : sliceColumns)
            Run(path, "ALTER TABLE [Slices] DROP COLUMN [" + column + "]");
        return path;
    }
    static QStringList Copies() { return QDir(SafetyCopyFolder()).entryList(QDir::Files | QDir::Hidden); }
};

TEST_F(OpenMapTest, GetMapFile_AsksForAMapInTheLastFolder) {
    SetLastPath(MapFile(QString()));
    desktop.ExpectOpenFile(MapFile(QStringLiteral("sub/a.map")));
    EXPECT_EQ(GetMapFile(false), MapFile(QStringLiteral("sub/a.map")));
    EXPECT_EQ(LastPath(), MapFile(QStringLiteral("sub/")));
    desktop.ExpectSaveFile(QString());
    EXPECT_EQ(GetMapFile(true), QString());
    EXPECT_EQ(LastPath(), MapFile(QStringLiteral("sub/")));

    const auto &shown = desktop.dialogs.shownFiles;
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_FALSE(shown[0].save);
    EXPECT_EQ(shown[0].filter, "Map Files|*.map|All Files|*.*");
    EXPECT_EQ(shown[0].flags, 4 + 4096 + 524288);
    EXPECT_EQ(shown[0].startFolder, MapFile(QString()));
    EXPECT_TRUE(shown[1].save);
    EXPECT_EQ(shown[1].defaultExtension, "map");
    EXPECT_EQ(shown[1].flags, 4 + 2 + 2048 + 524288);
}

TEST_F(OpenMapTest, ASaveDialogStartsInTheMapsFolderWithItsName) {
    SetLastPath(MapFile(QString()));
    QDir().mkpath(MapFile(QStringLiteral("sub")));
    desktop.ExpectSaveFile(QString());
    GetMapFile(true, MapFile(QStringLiteral("sub/plan.map")));
    EXPECT_EQ(desktop.dialogs.shownFiles.back().startFolder, MapFile(QStringLiteral("sub/plan.map")));
    EXPECT_EQ(PlaceToSave(QString()), support::AddBackslash(MapFile(QString())));
    EXPECT_EQ(PlaceToSave(MapFile(QStringLiteral("gone/plan.map"))), MapFile(QStringLiteral("plan.map")));
}

TEST_F(OpenMapTest, ASaveDialogNeverStartsInTheProgramsFolder) {
    const QString documents = PlaceToSave(QString());
    EXPECT_FALSE(documents.startsWith(ProgramFile(QString())));
    EXPECT_TRUE(support::DirExists(documents));
    SetLastPath(ProgramFile(QString()));
    EXPECT_EQ(PlaceToSave(QString()), documents);
    EXPECT_EQ(PlaceToSave(ProgramFile(QStringLiteral("sample.map"))),
              documents + QStringLiteral("sample.map"));
}

TEST_F(OpenMapTest, GetMapFile_StartsInTheDocumentsFolder) {
    desktop.ExpectOpenFile(QString());
    GetMapFile(false);
    EXPECT_FALSE(desktop.dialogs.shownFiles[0].startFolder.isEmpty());
    EXPECT_EQ(LastPath(), desktop.dialogs.shownFiles[0].startFolder);
}

TEST_F(OpenMapTest, ACancelledDialogGivesNothing) {
    desktop.ExpectOpenFile(QString());
    QString path;
    EXPECT_FALSE(OpenMap(path, false).has_value());
    EXPECT_EQ(path, "");
}

TEST_F(OpenMapTest, AChosenPathComesBackThroughTheArgument) {
    const QString chosen = EmptyMap(QStringLiteral("a.map"));
    desktop.ExpectOpenFile(chosen);
    QString path;
    EXPECT_TRUE(OpenMap(path, false).has_value());
    EXPECT_EQ(path, chosen);
}

TEST_F(OpenMapTest, ANewMapIsACopyOfTheTemplateAndDeletesWhatWasThere) {
    const QString path = MapFile(QStringLiteral("new.map"));
    support::AtomicFile(path).Write("rubbish");
    QString name = path;
    ASSERT_TRUE(OpenMap(name, true).has_value());
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT COUNT(*) FROM [Levels]")), 4);
    QFile::remove(TemplatePath());
    EXPECT_EQ(ErrorOf([&] { OpenMap(name, true); }).Number(), 53);
    EXPECT_FALSE(support::FileExists(path)) << "the old file goes before anything else succeeds";
}

TEST_F(OpenMapTest, AnOldFileGetsItsMissingColumnsOnDisk) {
    QString path = OldMap(QStringLiteral("old.map"), {QStringLiteral("Alignment")},
                          {QStringLiteral("xZoom"), QStringLiteral("yZoom")});
    Run(path, QStringLiteral("INSERT INTO [Nodes] ([Key]) VALUES ('a')"));
    Run(path, QStringLiteral("INSERT INTO [Slices] ([Index]) VALUES (0)"));
    OpenMap(path, false)->Close();
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT [Alignment] FROM [Nodes]")), 7);
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT [xZoom] FROM [Slices]")), 0);
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT [yZoom] FROM [Slices]")), 0);
}

TEST_F(OpenMapTest, AMapThatIsOnlyReadStaysAsItIs) {
    QString path = OldMap(QStringLiteral("old.map"), {QStringLiteral("Alignment")}, {});
    const QByteArray before = support::ReadWholeFile(path);
    const QStringList files = MapFiles();
    {
        std::optional<storage::Database> database = OpenMapToRead(path);
        ASSERT_TRUE(database);
        EXPECT_EQ(database->Name(), path);
        EXPECT_EQ(ErrorOf([&] { UpgradeMap(*database); }).Number(), storage::kErrReadOnly);
    }
    EXPECT_EQ(support::ReadWholeFile(path), before);
    EXPECT_EQ(MapFiles(), files);
    QString none;
    desktop.ExpectOpenFile(QString());
    EXPECT_FALSE(OpenMapToRead(none));
    desktop.ExpectOpenFile(path);
    EXPECT_TRUE(OpenMapToRead(none));
    EXPECT_EQ(none, path);
}

TEST_F(OpenMapTest, AFileThatLacksOnlyYZoomIsNotRepaired) {
    QString path = OldMap(QStringLiteral("old.map"), {}, {QStringLiteral("yZoom")});
    OpenMap(path, false)->Close();
    EXPECT_FALSE(storage::FieldExists(storage::OpenDatabase(path).Table(QStringLiteral("Slices")),
                                      QStringLiteral("yZoom")));
}

TEST_F(OpenMapTest, ErrorsStayAsTheEngineRaisedThem) {
    QString path = MapFile(QStringLiteral("text.map"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("This is a text, no database, and long enough to look at.");
    file.close();
    const support::Error error = ErrorOf([&] { OpenMap(path, false); });
    EXPECT_EQ(error.Number(), storage::kErrUnrecognizedFormat);
    EXPECT_EQ(error.Source(), "Storage.Database");
    path = MapFile(QStringLiteral("missing.map"));
    EXPECT_EQ(ErrorOf([&] { OpenMap(path, false); }).Number(), storage::kErrFileNotFound);
    path = MapFile(QString());
    EXPECT_EQ(ErrorOf([&] { OpenMap(path, false); }).Number(), storage::kErrCannotOpenFile);
}

TEST_F(OpenMapTest, CompactDb_KeepsTheContentAndLeavesASafetyCopy) {
    const QString path = EmptyMap(QStringLiteral("a.map"));
    Run(path, InsertNode(QStringLiteral("n")));
    const auto window = NewWindow();
    CompactDb(*window, path, false, QString());
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT [Key] FROM [Nodes]")), "n");
    EXPECT_EQ(window->pointers, (std::vector<int>{pointer::kHourglass, pointer::kNormal}));
    const QStringList left = Copies();
    ASSERT_EQ(left.size(), 1);
    EXPECT_EQ(Cell(SafetyCopyFolder() + "/" + left[0], QStringLiteral("SELECT [Key] FROM [Nodes]")), "n");
    CompactDb(*window, path, true, QString());
    EXPECT_EQ(QDir(TempFolder()).entryList({QStringLiteral("ABC*")}, QDir::Files).size(), 1);
}

TEST_F(OpenMapTest, CompactDb_KeepsTheNewestSafetyCopyOfEachMapForTheUserAlone) {
    const auto window = NewWindow();
    const QString a = EmptyMap(QStringLiteral("a.map"));
    ASSERT_TRUE(QDir().mkpath(MapFile(QStringLiteral("other"))));
    const QString b = EmptyMap(QStringLiteral("other/a.map"));
    for (const char *key : {"first", "second"}) {
        Run(a, InsertNode(QString::fromLatin1(key)));
        CompactDb(*window, a, false, QString());
    }
    CompactDb(*window, b, false, QString());
    const QStringList left = Copies();
    ASSERT_EQ(left.size(), 2);
    for (const QString &copy : left) EXPECT_TRUE(copy.endsWith(QStringLiteral("-a.map")));
    int nodes = 0;
    for (const QString &copy : left)
        nodes +=
            Cell(SafetyCopyFolder() + "/" + copy, QStringLiteral("SELECT COUNT(*) FROM [Nodes]")).toInt();
    EXPECT_EQ(nodes, 2);
    EXPECT_EQ(QDir(TempFolder()).entryList(QDir::Files), QStringList());
    EXPECT_FALSE(QFileInfo(SafetyCopyFolder()).permissions() &
                 (QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther));
}

TEST_F(OpenMapTest, SafetyCopiesOlderThanAWeekAreSweptAndSoAreDoubles) {
    const QDateTime now = QDateTime::currentDateTime();
    const auto write = [&](const QString &folder, const char *name, int daysOld) {
        QFile file(folder + "/" + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(file.setFileTime(now.addDays(-daysOld), QFileDevice::FileModificationTime));
    };
    const QString folder = SafetyCopyFolder();
    const QString second = TempFolder() + "/velmora-copies-zzzzzz";
    ASSERT_TRUE(QDir().mkdir(second));
    QFile::setPermissions(second, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    write(folder, "old.map", 8);
    write(folder, "ABC123.tmp", 9);
    write(folder, "young.map", 6);
    write(folder, "double.map", 3);
    write(second, "double.map", 2);
    SweepSafetyCopies(now);
    EXPECT_EQ(Copies(), QStringList(QStringLiteral("young.map")));
    EXPECT_EQ(QDir(second).entryList(QDir::Files), QStringList(QStringLiteral("double.map")));
}

TEST_F(OpenMapTest, CompactDb_LeavesAFileThatItCannotCompact) {
    const QString path = MapFile(QStringLiteral("a.map"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no database at all, and never was one");
    file.close();
    const auto window = NewWindow();
    EXPECT_NE(ErrorOf([&] { CompactDb(*window, path, false, QString()); }).Number(), 0);
    EXPECT_EQ(support::ReadWholeFile(path), "no database at all, and never was one");
}

TEST_F(OpenMapTest, CompactDb_ThatFailsLeavesTheSafetyCopyAlone) {
    const auto window = NewWindow();
    const auto left = [&] { return QDir(TempFolder()).entryList(QDir::Files).size() + Copies().size(); };
    EXPECT_NE(ErrorOf([&] { CompactDb(*window, MapFile("missing.map"), false, QString()); }).Number(), 0);
    EXPECT_EQ(left(), 0);
    const QString path = EmptyMap(QStringLiteral("a.map"));
    Run(path, InsertNode(QStringLiteral("n"), 0, QStringLiteral("[Description]"),
                         QStringLiteral("'%1'").arg(QString(20000, QLatin1Char('x')))));
    Run(path, QStringLiteral("DELETE FROM [Nodes]")); // leaves free space to take out
    QFile::setPermissions(path, QFile::ReadOwner);
    EXPECT_EQ(ErrorOf([&] { CompactDb(*window, path, false, QString()); }).Number(),
              support::kErrPathFileAccess);
    EXPECT_EQ(left(), 1);
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT COUNT(*) FROM [Nodes]")), 0);
}

TEST_F(OpenMapTest, ASchemaWithoutAColumnFailsOnlyWhenItIsAskedFor) {
    const QString path = OldMap(QStringLiteral("a.map"), {QStringLiteral("TextPos")}, {});
    storage::Database database = storage::OpenDatabase(path);
    const storage::Recordset rows = database.OpenRecordset(SelectAll(schema::kNodes));
    const Columns at(rows, schema::kNodes);
    EXPECT_EQ(at[schema::node::kKey], 0);
    EXPECT_EQ(ErrorOf([&] { (void)at[schema::node::kTextPos]; }).Number(), storage::kErrFieldNotFound);
}

TEST_F(OpenMapTest, WriteTemplate_HasEveryTableAndReplacesAFile) {
    const QString path = MapFile(QStringLiteral("t.tpl"));
    const GroupRow group{QStringLiteral("one"), true};
    WriteTemplate(path, {}, {});
    WriteTemplate(path, {}, {&group, 1});
    storage::Database database = storage::OpenDatabase(path);
    for (const TableLayout *table : schema::Tables()) {
        EXPECT_TRUE(storage::TableExistsDB(database, NameOf(*table))) << table->name;
        EXPECT_EQ(database.Table(NameOf(*table)).fields.size(), table->columns.size()) << table->name;
    }
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT [Group] FROM [Groups]")), "one");
}
