#include "storage/Fields.h"

#include "StorageFixture.h"

#include <QFileInfo>

namespace storage::test {

class FieldsTest : public StorageTest {
protected:
    Recordset Row() { return database_.OpenRecordset("SELECT * FROM Nodes WHERE [Key]='node0'"); }
    void Store(const QByteArray &bytes) {
        database_.Execute("UPDATE Nodes SET Data=?", kFailOnError, {bytes});
    }
    Database database_ = Sample("f.map", 1);
};

TEST_F(FieldsTest, FieldExists_ComparesInUpperCase) {
    EXPECT_TRUE(FieldExists(database_.Table("Nodes"), "LEFT"));
    EXPECT_FALSE(FieldExists(database_.Table("Nodes"), "Right"));
    EXPECT_TRUE(FieldExists(Row(), "left"));
    EXPECT_FALSE(FieldExists(Row(), "Right"));
}

TEST_F(FieldsTest, TableExistsDB_ComparesInUpperCase) {
    EXPECT_TRUE(TableExistsDB(database_, "NODES"));
    EXPECT_FALSE(TableExistsDB(database_, "Links"));
}

TEST_F(FieldsTest, AddField_AddsOnlyWhatIsMissing) {
    AddField(database_, "nodes", "Alignment", FieldType::Long);
    AddField(database_, "nodes", "ALIGNMENT", FieldType::Text, 10);
    AddField(database_, "nodes", "Note", FieldType::Text, 20);
    const TableDef table = database_.Table("Nodes");
    ASSERT_EQ(table.fields.size(), 7u);
    EXPECT_EQ(table.fields[5].type, FieldType::Long);
    EXPECT_EQ(table.fields[6].size, 20);
    EXPECT_EQ(NumberOf([&] { AddField(database_, "Links", "x", FieldType::Long); }), kErrFieldNotFound);
}

TEST_F(FieldsTest, RsIsEmpty_IsTrueForNothingAndForNoRows) {
    EXPECT_TRUE(RsIsEmpty(nullptr));
    Recordset none = database_.OpenRecordset("SELECT * FROM Nodes WHERE [Level]=99");
    EXPECT_TRUE(RsIsEmpty(&none));
    Recordset one = Row();
    EXPECT_FALSE(RsIsEmpty(&one));
    one.MoveNext();
    EXPECT_FALSE(RsIsEmpty(&one));
}

TEST_F(FieldsTest, ReadFileIntoField_TakesTheWholeFile) {
    QByteArray bytes(3000000, '\0');
    for (qsizetype i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7 + i / 255);
    WriteContent(Path("in.bin"), bytes);
    Recordset row = Row();
    row.Edit();
    ReadFileIntoField(Path("in.bin"), row, "Data");
    row.Update();
    EXPECT_EQ(row.Bytes(row.Column("Data")), bytes);
}

TEST_F(FieldsTest, ReadBinaryFile_ReplacesTheValue) {
    WriteContent(Path("in.bin"), "new");
    Recordset row = Row();
    row.Edit();
    row.AppendChunk("Data", "old");
    ReadBinaryFile(Path("in.bin"), row, "data");
    row.Update();
    EXPECT_EQ(row.Bytes(row.Column("Data")), "new");
}

TEST_F(FieldsTest, ReadFileIntoField_OfAnEmptyFileIsNotNull) {
    WriteContent(Path("in.bin"), {});
    Recordset row = Row();
    row.Edit();
    ReadFileIntoField(Path("in.bin"), row, "Data");
    row.Update();
    EXPECT_FALSE(row.IsNull(row.Column("Data")));
}

TEST_F(FieldsTest, ReadFileIntoField_OfAMissingFileIsFileNotFound) {
    Recordset row = Row();
    row.Edit();
    EXPECT_EQ(NumberOf([&] { ReadFileIntoField(Path("none.bin"), row, "Data"); }), 53);
    EXPECT_EQ(NumberOf([&] { ReadBinaryFile(Path("none.bin"), row, "Data"); }), 53);
}

TEST_F(FieldsTest, WriteFileFromField_MakesTheFile) {
    Store(QByteArray("a\0b", 3));
    WriteFileFromField(Path("out.bin"), Row(), "Data");
    EXPECT_EQ(Content(Path("out.bin")), QByteArray("a\0b", 3));
    EXPECT_EQ(Files(), (QStringList{"f.map", "out.bin"}));
}

TEST_F(FieldsTest, WriteFileFromField_LeavesWhatALongerFileHoldsBehind) {
    Store("new");
    WriteContent(Path("out.bin"), "older content");
    WriteFileFromField(Path("out.bin"), Row(), "Data");
    EXPECT_EQ(Content(Path("out.bin")), "newer content");
}

TEST_F(FieldsTest, WriteFileFromField_OfNullMakesAnEmptyFile) {
    WriteFileFromField(Path("out.bin"), Row(), "Data");
    EXPECT_TRUE(QFileInfo::exists(Path("out.bin")));
    EXPECT_EQ(QFileInfo(Path("out.bin")).size(), 0);
}

TEST_F(FieldsTest, WriteFileFromField_ToABadPathIsAnError) {
    Store("x");
    EXPECT_EQ(NumberOf([&] { WriteFileFromField(Path("none/out.bin"), Row(), "Data"); }), 76);
    EXPECT_EQ(NumberOf([&] { WriteFileFromField(Path("."), Row(), "Data"); }), 75);
    EXPECT_EQ(NumberOf([&] { WriteFileFromField(Path("o.bin"), Row(), "None"); }), kErrFieldNotFound);
}

TEST_F(FieldsTest, WriteBinaryFile_MakesANameWhenThereIsNone) {
    Store("x");
    QString path;
    WriteBinaryFile(path, Row(), "Data");
    ASSERT_FALSE(path.isEmpty());
    EXPECT_EQ(Content(path), "x");
    EXPECT_TRUE(QFile::remove(path));
    path = Path("named.bin");
    WriteBinaryFile(path, Row(), "Data");
    EXPECT_EQ(path, Path("named.bin"));
    EXPECT_EQ(Content(path), "x");
}

} // namespace storage::test
