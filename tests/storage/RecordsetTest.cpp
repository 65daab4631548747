#include "StorageFixture.h"

#include <limits>

namespace storage::test {

class RecordsetTest : public StorageTest {
protected:
    // A recordset of one row with one value.
    Recordset Of(const QString &expression) {
        return database_.OpenRecordset("SELECT " + expression + " AS v");
    }
    Database database_ = Sample("r.map", 4);
};

TEST_F(RecordsetTest, Empty_IsAtBothEnds) {
    Recordset rows = database_.OpenRecordset("SELECT * FROM Nodes WHERE [Level]=99");
    EXPECT_TRUE(rows.EndOfFile());
    EXPECT_TRUE(rows.BeginningOfFile());
    EXPECT_EQ(Raised([&] { rows.MoveNext(); }), "3021 No current record.");
    EXPECT_EQ(Raised([&] { rows.MoveFirst(); }), "3021 No current record.");
    EXPECT_EQ(Raised([&] { rows.Long(0); }), "3021 No current record.");
    EXPECT_EQ(rows.PercentPosition(), 0);
}

TEST_F(RecordsetTest, MoveNext_EndsBehindTheLastRow) {
    Recordset rows = database_.OpenRecordset("SELECT [Key] FROM Nodes ORDER BY [Key]");
    QStringList keys;
    for (; !rows.EndOfFile(); rows.MoveNext()) keys += rows.Text(0);
    EXPECT_EQ(keys.join(","), "node0,node1,node2,node3");
    EXPECT_FALSE(rows.BeginningOfFile());
    EXPECT_EQ(Raised([&] { rows.MoveNext(); }), "3021 No current record.");
    EXPECT_EQ(Raised([&] { rows.Text(0); }), "3021 No current record.");
}

TEST_F(RecordsetTest, MoveFirst_WalksAgain) {
    Recordset rows = database_.OpenRecordset("SELECT [Key] FROM Nodes WHERE [Level]>=?", {1});
    while (!rows.EndOfFile()) rows.MoveNext();
    rows.MoveFirst();
    EXPECT_EQ(rows.Text(0), "node1");
}

TEST_F(RecordsetTest, PercentPosition_IsTheShareOfTheRowsPassed) {
    Recordset rows = database_.OpenRecordset("SELECT * FROM Nodes WHERE [Level]>=? ORDER BY [Key];", {0});
    EXPECT_EQ(rows.PercentPosition(), 0);
    rows.MoveNext();
    EXPECT_EQ(rows.PercentPosition(), 25);
    rows.MoveNext();
    rows.MoveNext();
    EXPECT_EQ(rows.PercentPosition(), 75);
    rows.MoveNext();
    EXPECT_EQ(rows.PercentPosition(), 100);
    rows.MoveFirst();
    EXPECT_EQ(rows.PercentPosition(), 0);
}

TEST_F(RecordsetTest, Columns_AreFoundWithoutRegardToCase) {
    Recordset rows = database_.OpenRecordset("SELECT * FROM Nodes");
    EXPECT_EQ(rows.FieldCount(), 5);
    EXPECT_EQ(rows.FieldName(1), "Left");
    EXPECT_EQ(rows.Column("LEVEL"), 3);
    EXPECT_EQ(rows.FindColumn("Alignment"), -1);
    const QString text = "3265 Item not found in this collection.";
    EXPECT_EQ(Raised([&] { rows.Column("Alignment"); }), text);
    EXPECT_EQ(Raised([&] { rows.FieldName(5); }), text);
    EXPECT_EQ(Raised([&] { rows.Text(5); }), text);
    EXPECT_EQ(Raised([&] { rows.Text(-1); }), text);
    EXPECT_EQ(Raised([&] { rows.Value("Alignment"); }), text);
}

TEST_F(RecordsetTest, Null_ReadsAsNothing) {
    Recordset rows = Of("NULL");
    EXPECT_TRUE(rows.IsNull(0));
    EXPECT_FALSE(rows.Boolean(0));
    EXPECT_EQ(rows.Integer(0), 0);
    EXPECT_EQ(rows.Long(0), 0);
    EXPECT_EQ(rows.Single(0), 0);
    EXPECT_EQ(rows.Double(0), 0);
    EXPECT_EQ(rows.Text(0), "");
    EXPECT_TRUE(rows.Utf8(0).empty());
    EXPECT_TRUE(rows.Bytes(0).isEmpty());
    EXPECT_FALSE(rows.Value("v").isValid());
}

TEST_F(RecordsetTest, EmptyText_IsNotNull) {
    EXPECT_FALSE(Of("''").IsNull(0));
    EXPECT_EQ(Of("''").Text(0), "");
}

TEST_F(RecordsetTest, Boolean_IsTrueForAnyNumberButZero) {
    EXPECT_TRUE(Of("1").Boolean(0));
    EXPECT_TRUE(Of("-1").Boolean(0));
    EXPECT_TRUE(Of("'-1'").Boolean(0));
    EXPECT_TRUE(Of("'True'").Boolean(0));
    EXPECT_TRUE(Of("0.5").Boolean(0));
    EXPECT_FALSE(Of("0").Boolean(0));
    EXPECT_FALSE(Of("'False'").Boolean(0));
    EXPECT_FALSE(Of("NULL").Boolean(0));
}

TEST_F(RecordsetTest, Numbers_MayStandAsText) {
    EXPECT_EQ(Of("'12'").Long(0), 12);
    EXPECT_EQ(Of("' -3 '").Integer(0), -3);
    EXPECT_EQ(Of("'-2.5e1'").Double(0), -25);
    EXPECT_EQ(Of("'0.5'").Single(0), 0.5F);
    EXPECT_TRUE(Of("'1'").Boolean(0));
}

TEST_F(RecordsetTest, Numbers_OfAnyOtherTextAreAMismatch) {
    for (const char *value : {"'nothing'", "'12 Important'", "'&HFF'", "''", "'1,000'", "x'41'"}) {
        const QString text = "13 Type mismatch";
        EXPECT_EQ(Raised([&] { Of(value).Long(0); }), text) << value;
        EXPECT_EQ(Raised([&] { Of(value).Integer(0); }), text) << value;
        EXPECT_EQ(Raised([&] { Of(value).Single(0); }), text) << value;
        EXPECT_EQ(Raised([&] { Of(value).Double(0); }), text) << value;
        EXPECT_EQ(Raised([&] { Of(value).Boolean(0); }), text) << value;
    }
    EXPECT_EQ(Raised([&] { Of("'inf'").Single(0); }), "6 Overflow");
}

TEST_F(RecordsetTest, WholeNumbers_AreRoundedWithTiesToTheEvenNeighbour) {
    EXPECT_EQ(Of("0.5").Long(0), 0);
    EXPECT_EQ(Of("1.5").Long(0), 2);
    EXPECT_EQ(Of("-2.5").Integer(0), -2);
    EXPECT_EQ(Of("2.6").Integer(0), 3);
}

TEST_F(RecordsetTest, Numbers_OutOfTheRangeOverflow) {
    const QString text = "6 Overflow";
    EXPECT_EQ(Of("32767").Integer(0), 32767);
    EXPECT_EQ(Of("-32768").Integer(0), -32768);
    EXPECT_EQ(Raised([&] { Of("32768").Integer(0); }), text);
    EXPECT_EQ(Raised([&] { Of("-32769").Integer(0); }), text);
    EXPECT_EQ(Of("2147483647").Long(0), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(Raised([&] { Of("2147483648").Long(0); }), text);
    EXPECT_EQ(Raised([&] { Of("'99999999999'").Long(0); }), text);
    EXPECT_EQ(Raised([&] { Of("1e300").Long(0); }), text);
    EXPECT_EQ(Raised([&] { Of("1e39").Single(0); }), text);
    EXPECT_EQ(Raised([&] { Of("-9e999").Single(0); }), text);
    EXPECT_EQ(Raised([&] { Of("9e999").Double(0); }), text);
    EXPECT_EQ(Of("1e39").Double(0), 1e39);
}

TEST_F(RecordsetTest, Text_KeepsNulAndCharactersBeyondTheFirstPlane) {
    const QString text = QString::fromUtf8("a\0b\xF0\x9F\x8C\x8A", 7);
    Recordset rows = database_.OpenRecordset("SELECT ? AS v", {text});
    EXPECT_EQ(rows.Text(0), text);
    EXPECT_EQ(rows.Utf8(0), std::string_view("a\0b\xF0\x9F\x8C\x8A", 7));
    EXPECT_EQ(Of("12").Text(0), "12");
}

TEST_F(RecordsetTest, Value_HasTheTypeOfTheField) {
    Recordset rows = database_.OpenRecordset("SELECT * FROM Nodes WHERE [Key]='node1'");
    EXPECT_EQ(rows.Value("key"), QVariant("node1"));
    EXPECT_EQ(rows.Value("hidden"), QVariant(true));
    EXPECT_EQ(rows.Value("level"), QVariant(1LL));
    EXPECT_EQ(rows.Value("left"), QVariant(1.5));
    EXPECT_FALSE(rows.Value("data").isValid());
}

TEST_F(RecordsetTest, Edit_ChangesTheCurrentRowAlone) {
    Recordset rows = database_.OpenRecordset("SELECT [Level], [Key] FROM [Nodes] WHERE [Key]='node2'");
    rows.Edit();
    rows.Set("level", 42);
    rows.Set("KEY", "it's");
    rows.Set("Level", 43);
    rows.Update();
    EXPECT_EQ(rows.Long(0), 43);
    EXPECT_EQ(rows.Text(1), "it's");
    EXPECT_EQ(database_.OpenRecordset("SELECT COUNT(*) FROM Nodes WHERE [Level]=43").Long(0), 1);
    rows.MoveNext();
    EXPECT_TRUE(rows.EndOfFile());
}

TEST_F(RecordsetTest, Edit_OfEveryRowInTurnKeepsTheOrder) {
    Recordset rows = database_.OpenRecordset("SELECT * FROM Nodes ORDER BY [Level] DESC");
    int number = 0;
    for (; !rows.EndOfFile(); rows.MoveNext()) {
        rows.Edit();
        rows.Set("Level", number++);
        rows.Update();
    }
    Recordset after =
        database_.OpenRecordset("SELECT group_concat([Key]) FROM (SELECT [Key] FROM Nodes ORDER BY [Level])");
    EXPECT_EQ(after.Text(0), "node3,node2,node1,node0");
}

TEST_F(RecordsetTest, AddNew_AppendsARow) {
    Recordset rows = database_.OpenRecordset("SELECT * FROM [Nodes] WHERE [Level]>100");
    rows.AddNew();
    rows.Set("Key", "new");
    rows.Set("Hidden", true);
    rows.Update();
    rows.AddNew();
    rows.Update();
    EXPECT_EQ(database_.OpenRecordset("SELECT COUNT(*) FROM Nodes").Long(0), 6);
    EXPECT_TRUE(database_.OpenRecordset("SELECT Hidden FROM Nodes WHERE [Key]='new'").Boolean(0));
}

TEST_F(RecordsetTest, Update_NeedsEditOrAddNew) {
    Recordset rows = database_.OpenRecordset("SELECT * FROM Nodes");
    const QString text = "3020 Update or CancelUpdate without AddNew or Edit.";
    EXPECT_EQ(Raised([&] { rows.Update(); }), text);
    EXPECT_EQ(Raised([&] { rows.Set("Level", 1); }), text);
    EXPECT_EQ(Raised([&] { rows.AppendChunk("Data", "x"); }), text);
    rows.Edit();
    rows.MoveNext();
    EXPECT_EQ(Raised([&] { rows.Update(); }), text);
    rows.Edit();
    EXPECT_EQ(Raised([&] { rows.Set("Nothing", 1); }), "3265 Item not found in this collection.");
}

TEST_F(RecordsetTest, Edit_WithoutARowIsNoCurrentRecord) {
    Recordset rows = database_.OpenRecordset("SELECT * FROM Nodes WHERE [Level]=99");
    EXPECT_EQ(Raised([&] { rows.Edit(); }), "3021 No current record.");
}

TEST_F(RecordsetTest, Edit_OfAQueryThatIsNotOneTableIsReadOnly) {
    const QString text = "3027 Cannot update. Database or object is read-only.";
    for (const char *sql :
         {"SELECT DISTINCT [Level] FROM Nodes", "SELECT COUNT(*) FROM Nodes",
          "SELECT a.[Key] FROM Nodes a, Nodes b", "SELECT [Level] FROM Nodes GROUP BY [Level]",
          "SELECT [Key] FROM Nodes WHERE [Level]=1 UNION SELECT 'x'"}) {
        Recordset rows = database_.OpenRecordset(sql);
        EXPECT_EQ(Raised([&] { rows.Edit(); }), text) << sql;
        EXPECT_EQ(Raised([&] { rows.AddNew(); }), text) << sql;
        EXPECT_EQ(rows.FieldCount(), 1) << sql;
    }
}

TEST_F(RecordsetTest, Edit_KnowsNoGroupByInATextOrAName) {
    database_.Execute("CREATE TABLE [a group by b] (x)");
    database_.Execute("INSERT INTO [a group by b] VALUES (' group by ')");
    Recordset rows = database_.OpenRecordset("SELECT x FROM [a group by b] WHERE x=' group by '");
    rows.Edit();
    rows.Set("x", 1);
    rows.Update();
    EXPECT_EQ(rows.Long(0), 1);
}

TEST_F(RecordsetTest, Chunks_GrowAndAreReadInPieces) {
    Recordset rows = database_.OpenRecordset("SELECT [Data] FROM Nodes WHERE [Key]='node0'");
    rows.Edit();
    rows.AppendChunk("data", QByteArray("ab\0", 3));
    rows.AppendChunk("Data", "cdef");
    rows.Update();
    EXPECT_EQ(rows.Bytes(0), QByteArray("ab\0cdef", 7));
    EXPECT_EQ(rows.GetChunk("Data", 0, 3), QByteArray("ab\0", 3));
    EXPECT_EQ(rows.GetChunk("Data", 5, 100), "ef");
    EXPECT_EQ(rows.GetChunk("Data", 7, 1), "");
    EXPECT_EQ(NumberOf([&] { rows.GetChunk("Data", -1, 1); }), 5);
}

TEST_F(RecordsetTest, Close_LeavesNoRows) {
    Recordset rows = database_.OpenRecordset("SELECT * FROM Nodes");
    rows.Close();
    EXPECT_TRUE(rows.EndOfFile());
    EXPECT_EQ(rows.FieldCount(), 0);
    EXPECT_EQ(Raised([&] { rows.MoveFirst(); }), "3021 No current record.");
    EXPECT_EQ(NumberOf([&] { rows.AddNew(); }), kErrReadOnly);
    rows.Close();
}

} // namespace storage::test
