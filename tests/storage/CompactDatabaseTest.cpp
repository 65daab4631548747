#include "StorageFixture.h"

#include <QFileInfo>

namespace storage::test {

class CompactDatabaseTest : public StorageTest {
protected:
    void Compact(const QString &source, const QString &target) {
        CompactDatabase(Path(source), Path(target), ";LANGID=0x0409;CP=1252;COUNTRY=0", 32);
    }
    int Rows(const QString &name) {
        return OpenDatabase(Path(name)).OpenRecordset("SELECT COUNT(*) FROM Nodes").Long(0);
    }
};

TEST_F(CompactDatabaseTest, FreeSpace_IsReclaimed) {
    {
        Database database = Sample("a.map", 5000);
        database.Execute("DELETE FROM Nodes WHERE [Level]>=10");
    }
    Compact("a.map", "b.map");
    EXPECT_LT(QFileInfo(Path("b.map")).size() * 4, QFileInfo(Path("a.map")).size());
    EXPECT_EQ(Rows("a.map"), 10);
    EXPECT_EQ(Rows("b.map"), 10);
}

TEST_F(CompactDatabaseTest, AFileWithoutFreeSpace_IsCopied) {
    Sample("a.map", 5000).Close();
    Compact("a.map", "b.map");
    EXPECT_EQ(Content(Path("b.map")), Content(Path("a.map")));
    EXPECT_EQ(Rows("b.map"), 5000);
}

TEST_F(CompactDatabaseTest, AWriteProtectedSource_GivesAFileThatCanBeWritten) {
    Sample("a.map", 1).Close();
    ASSERT_TRUE(QFile::setPermissions(Path("a.map"), QFileDevice::ReadOwner));
    Compact("a.map", "b.map");
    EXPECT_TRUE(QFile::permissions(Path("b.map")).testFlag(QFileDevice::WriteOwner));
}

TEST_F(CompactDatabaseTest, AnExistingTarget_IsLeftAlone) {
    Sample("a.map", 1).Close();
    WriteContent(Path("b.map"), "mine");
    EXPECT_EQ(Raised([&] { Compact("a.map", "b.map"); }), "3204 Database already exists.");
    EXPECT_EQ(Raised([&] { Compact("a.map", "a.map"); }), "3204 Database already exists.");
    EXPECT_EQ(Content(Path("b.map")), "mine");
}

TEST_F(CompactDatabaseTest, ABadSource_LeavesNoTarget) {
    WriteContent(Path("text.map"), "no database");
    Sample("a.map", 500).Close();
    WriteContent(Path("cut.map"), Content(Path("a.map")).chopped(4096));
    EXPECT_EQ(NumberOf([&] { Compact("none.map", "b.map"); }), kErrFileNotFound);
    EXPECT_EQ(NumberOf([&] { Compact("text.map", "b.map"); }), kErrUnrecognizedFormat);
    EXPECT_EQ(NumberOf([&] { Compact("cut.map", "b.map"); }), kErrDamaged);
    EXPECT_FALSE(QFileInfo::exists(Path("b.map")));
}

TEST_F(CompactDatabaseTest, ATargetInAMissingFolder_CannotBeOpened) {
    Sample("a.map", 1).Close();
    EXPECT_EQ(NumberOf([&] { Compact("a.map", "none/b.map"); }), kErrCannotOpenFile);
    {
        Database database = Sample("c.map", 5000);
        database.Execute("DELETE FROM Nodes");
    }
    EXPECT_EQ(NumberOf([&] { Compact("c.map", "none/b.map"); }), kErrCannotOpenFile);
}

} // namespace storage::test
