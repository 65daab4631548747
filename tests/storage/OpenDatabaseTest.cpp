#include "StorageFixture.h"

#include <QFileInfo>
#include <random>

namespace storage::test {

class OpenDatabaseTest : public StorageTest {
protected:
    QString Opened(const QString &name) {
        return Raised([&] { OpenDatabase(Path(name)); });
    }
    QString Unrecognized(const QString &name) const {
        return "3343 Unrecognized database format '" + QDir::toNativeSeparators(Path(name)) + "'.";
    }
    QString Damaged(const QString &name) const {
        return "3049 Cannot open database '" + QDir::toNativeSeparators(Path(name)) +
               "'.  It may not be a database that your application recognizes, or the file may be corrupt.";
    }
};

TEST_F(OpenDatabaseTest, MissingFile_IsNotMade) {
    EXPECT_EQ(Opened("none.map"),
              "3024 Could not find file '" + QDir::toNativeSeparators(Path("none.map")) + "'.");
    EXPECT_EQ(NumberOf([] { OpenDatabase(QString()); }), kErrFileNotFound);
    EXPECT_EQ(NumberOf([&] { OpenDatabase(Path("no/folder.map")); }), kErrFileNotFound);
    EXPECT_TRUE(Files().isEmpty());
}

TEST_F(OpenDatabaseTest, Folder_CannotBeOpened) {
    ASSERT_TRUE(QDir().mkpath(Path("folder.map")));
    EXPECT_EQ(Opened("folder.map"), "3051 The database engine cannot open or write to the file '" +
                                        QDir::toNativeSeparators(Path("folder.map")) +
                                        "'. It is already opened exclusively by another user, or you need "
                                        "permission to view and write its "
                                        "data.");
}

TEST_F(OpenDatabaseTest, OtherContent_IsNotRecognized) {
    WriteContent(Path("empty.map"), {});
    WriteContent(Path("text.map"), "just a text");
    WriteContent(Path("almost.map"), "SQLite format 4");
    for (const char *name : {"empty.map", "text.map", "almost.map"})
        EXPECT_EQ(Opened(name), Unrecognized(name));
}

TEST_F(OpenDatabaseTest, OpenToRead_ReadsAndNeverWrites) {
    Sample("whole.map", 10).Close();
    const QByteArray whole = Content(Path("whole.map"));
    {
        Database database = OpenToRead(Path("whole.map"));
        EXPECT_FALSE(database.TableDefs().empty());
        EXPECT_EQ(NumberOf([&] { database.CreateTable({"New", {{"a"}}}); }), kErrReadOnly);
    }
    EXPECT_EQ(Content(Path("whole.map")), whole);
    EXPECT_EQ(NumberOf([] { OpenToRead(QString()); }), kErrFileNotFound);
    WriteContent(Path("text.map"), "just a text");
    EXPECT_EQ(NumberOf([&] { OpenToRead(Path("text.map")); }), kErrUnrecognizedFormat);
    EXPECT_EQ(Files(), (QStringList{"text.map", "whole.map"}));
}

TEST_F(OpenDatabaseTest, CutOffFile_DoesNotOpen) {
    Sample("whole.map", 2000).Close();
    const QByteArray whole = Content(Path("whole.map"));
    ASSERT_GT(whole.size(), 3 * 4096);
    for (const qint64 size : {qint64(16), qint64(99), qint64(100), qint64(4096), whole.size() - 4096,
                              whole.size() - 1, whole.size() / 2}) {
        WriteContent(Path("cut.map"), whole.left(size));
        EXPECT_EQ(Opened("cut.map"), Damaged("cut.map")) << size;
        EXPECT_EQ(Content(Path("cut.map")), whole.left(size)) << size;
    }
}

TEST_F(OpenDatabaseTest, WrongHeader_DoesNotOpen) {
    Sample("whole.map", 10).Close();
    QByteArray bytes = Content(Path("whole.map"));
    bytes[16] = 3; // no page size
    WriteContent(Path("header.map"), bytes);
    EXPECT_EQ(Opened("header.map"), Damaged("header.map"));
    bytes = Content(Path("whole.map")).replace(100, 200, QByteArray(200, '\xFF'));
    WriteContent(Path("root.map"), bytes);
    EXPECT_EQ(Opened("root.map"), Damaged("root.map"));
}

TEST_F(OpenDatabaseTest, DamagedRows_EndTheReadingWithAnError) {
    Sample("whole.map", 5000).Close();
    QByteArray bytes = Content(Path("whole.map"));
    for (qsizetype page = 3; page < bytes.size() / 4096; ++page)
        bytes.replace(page * 4096, 16, QByteArray(16, '\xEE'));
    WriteContent(Path("rows.map"), bytes);
    EXPECT_EQ(Raised([&] {
                  Database database = OpenDatabase(Path("rows.map"));
                  for (Recordset rows = database.OpenRecordset("SELECT * FROM Nodes"); !rows.EndOfFile();
                       rows.MoveNext())
                      rows.Text(0);
              }),
              Damaged("rows.map"));
}

TEST_F(OpenDatabaseTest, RandomDamage_EndsInAnErrorOrInReadableTables) {
    constexpr int kSeeds = 300;
    Sample("whole.map", 300).Close();
    const QByteArray whole = Content(Path("whole.map"));
    for (int seed = 0; seed < kSeeds; ++seed) {
        std::mt19937 random(seed);
        QByteArray bytes = whole;
        const auto reach =
            static_cast<unsigned>(seed % 2 == 0 ? 2048 : bytes.size()); // the header and the schema
        for (int i = 0; i <= seed % 20; ++i)
            bytes[random() % (reach - 16) + 16] = static_cast<char>(random());
        WriteContent(Path("changed.map"), bytes);
        const QString raised = Raised([&] {
            Database database = OpenDatabase(Path("changed.map"));
            for (const TableDef &table : database.TableDefs()) {
                for (Recordset rows = database.OpenRecordset("SELECT * FROM [" + table.name + "]");
                     !rows.EndOfFile(); rows.MoveNext()) {
                    for (int i = 0; i < rows.FieldCount(); ++i) rows.Text(i);
                }
            }
        });
        const long number = raised.section(u' ', 0, 0).toLong();
        EXPECT_TRUE(number == 0 || number == kErrDamaged || number == kErrUnrecognizedFormat)
            << seed << ' ' << raised.toStdString();
    }
}

TEST_F(OpenDatabaseTest, WriteAheadFile_OpensAndLeavesNoFilesBehind) {
    Sample("wal.map", 3).Execute("PRAGMA journal_mode=WAL");
    ASSERT_EQ(Content(Path("wal.map"))[18], 2);
    {
        Database database = OpenDatabase(Path("wal.map"));
        EXPECT_EQ(database.OpenRecordset("SELECT COUNT(*) FROM Nodes").Long(0), 3);
    }
    EXPECT_EQ(Files(), QStringList{"wal.map"});
}

TEST_F(OpenDatabaseTest, Utf16File_HasTheSameTexts) {
    const QString text = QString::fromUtf8("caf\xC3\xA9 \xF0\x9F\x8C\x8A");
    {
        Database database = CreateDatabase(Path("wide.map"));
        database.Execute("PRAGMA encoding='UTF-16'");
        database.Execute("CREATE TABLE T (a TEXT)");
        database.Execute("INSERT INTO T VALUES (?)", kFailOnError, {text});
    }
    EXPECT_EQ(OpenDatabase(Path("wide.map")).OpenRecordset("SELECT a FROM T").Text(0), text);
}

TEST_F(OpenDatabaseTest, AnotherProgramsFile_OpensWithItsTables) {
    Sample("other.map").Execute("CREATE TABLE Bookmarks (id INTEGER PRIMARY KEY, url LONGVARCHAR, f BLOB)");
    Database database = OpenDatabase(Path("other.map"));
    const TableDef table = database.Table("bookmarks");
    ASSERT_EQ(table.fields.size(), 3u);
    EXPECT_EQ(table.fields[0].type, FieldType::Long);
    EXPECT_EQ(table.fields[1].type, FieldType::Text);
    EXPECT_EQ(table.fields[2].type, FieldType::LongBinary);
    EXPECT_EQ(NumberOf([&] { database.OpenRecordset("SELECT * FROM Slices"); }), kErrTableNotFound);
}

TEST_F(OpenDatabaseTest, AnyPath_Works) {
    const QString names[] = {"it's.map",
                             "two words.map",
                             "100%.map",
                             "what?.map",
                             "#1.map",
                             "a;b&c.map",
                             "\"q\".map",
                             "file:x.map",
                             ":memory:",
                             QString::fromUtf8("\xD0\xBA\xD0\xB0\xD1\x80\xD1\x82\xD0\xB0 "
                                               "\xE5\x9C\xB0\xE5\x9B\xB3.map")};
    for (const QString &name : names) {
        Sample(name, 3).Close();
        ASSERT_TRUE(Files().contains(name)) << name.toStdString();
        Database database = OpenDatabase(Path(name));
        EXPECT_EQ(database.OpenRecordset("SELECT COUNT(*) FROM Nodes").Long(0), 3) << name.toStdString();
    }
    EXPECT_EQ(Files().size(), std::ssize(names));
}

TEST_F(OpenDatabaseTest, RelativePath_IsNamedInFull) {
    Sample("r.map").Close();
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(QFileInfo(Path("r.map")).absolutePath()));
    EXPECT_TRUE(OpenDatabase("r.map").Name().endsWith("r.map"));
    EXPECT_TRUE(QFileInfo(OpenDatabase("r.map").Name()).isAbsolute());
    ASSERT_TRUE(QDir::setCurrent(before));
}

TEST_F(OpenDatabaseTest, Reading_LeavesNoFilesAndNoChange) {
    Sample("a.map", 100).Close();
    const QByteArray before = Content(Path("a.map"));
    {
        Database database = OpenDatabase(Path("a.map"));
        Recordset rows = database.OpenRecordset("SELECT * FROM Nodes ORDER BY [Left]");
        EXPECT_EQ(Files(), QStringList{"a.map"});
    }
    EXPECT_EQ(Files(), QStringList{"a.map"});
    EXPECT_EQ(Content(Path("a.map")), before);
}

TEST_F(OpenDatabaseTest, Writing_LeavesNoFilesBehind) {
    Sample("a.map", 100).Close();
    OpenDatabase(Path("a.map")).Execute("DELETE FROM Nodes");
    EXPECT_EQ(Files(), QStringList{"a.map"});
}

TEST_F(OpenDatabaseTest, Building_WritesTheSameContent) {
    Sample("b.map").Close();
    {
        Database database = OpenForBuilding(Path("b.map"));
        database.BeginTrans();
        PreparedStatement insert = database.Prepare("INSERT INTO Nodes ([Key]) VALUES (?)");
        for (int i = 0; i < 1000; ++i) {
            insert.BindText(0, QString::number(i));
            insert.Run();
        }
        database.CommitTrans();
        EXPECT_EQ(Files(), QStringList{"b.map"});
    }
    EXPECT_EQ(OpenDatabase(Path("b.map")).OpenRecordset("SELECT COUNT(*) FROM Nodes").Long(0), 1000);
}

TEST_F(OpenDatabaseTest, Building_TakesOnlyTheProgramsOwnForm) {
    WriteContent(Path("text.map"), "just a text");
    EXPECT_EQ(Raised([&] { OpenForBuilding(Path("text.map")); }), Unrecognized("text.map"));
    EXPECT_EQ(NumberOf([&] { OpenForBuilding(Path("none.map")); }), kErrFileNotFound);
}

TEST_F(OpenDatabaseTest, ReadOnlyDatabase_RefusesWritesAndReads) {
    Sample("a.map", 2).Close();
    Database database = OpenDatabase(Path("a.map"));
    database.Execute("PRAGMA query_only=ON");
    EXPECT_EQ(Raised([&] { database.Execute("DELETE FROM Nodes"); }),
              "3027 Cannot update. Database or object is read-only.");
    EXPECT_EQ(database.OpenRecordset("SELECT COUNT(*) FROM Nodes").Long(0), 2);
}

TEST_F(OpenDatabaseTest, WriteProtectedFile_OpensForReading) {
    Sample("a.map", 2).Close();
    ASSERT_TRUE(QFile::setPermissions(Path("a.map"), QFileDevice::ReadOwner));
    Database database = OpenDatabase(Path("a.map"));
    EXPECT_EQ(database.OpenRecordset("SELECT COUNT(*) FROM Nodes").Long(0), 2);
    const bool mayWrite =
        QFile(Path("a.map")).open(QIODevice::ReadWrite); // an administrator may all the same
    EXPECT_EQ(NumberOf([&] { database.Execute("DELETE FROM Nodes"); }), mayWrite ? 0 : kErrReadOnly);
}

} // namespace storage::test
