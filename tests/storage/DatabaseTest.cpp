#include "StorageFixture.h"

namespace storage::test {

class DatabaseTest : public StorageTest {};

TEST_F(DatabaseTest, CreateDatabase_MakesAFileThatOpensAgain) {
    CreateDatabase(Path("new.map")).Close();
    Database database = OpenDatabase(Path("new.map"));
    EXPECT_TRUE(database.TableDefs().empty());
    EXPECT_TRUE(database.IsNative());
    EXPECT_EQ(database.Name(), QDir::toNativeSeparators(Path("new.map")));
}

TEST_F(DatabaseTest, CreateDatabase_RefusesAFileThatExists) {
    WriteContent(Path("there.map"), "x");
    EXPECT_EQ(Raised([&] { CreateDatabase(Path("there.map")); }), "3204 Database already exists.");
    EXPECT_EQ(Content(Path("there.map")), "x");
}

TEST_F(DatabaseTest, CreateDatabase_InAMissingFolderNamesThePath) {
    EXPECT_EQ(NumberOf([&] { CreateDatabase(Path("none/new.map")); }), kErrInvalidPath);
    EXPECT_EQ(NumberOf([&] { CreateDatabase(QString()); }), kErrInvalidPath);
}

TEST_F(DatabaseTest, CreateTable_KeepsTheTypeOfEveryField) {
    const TableDef wanted{"All",
                          {{"a", FieldType::Boolean},
                           {"b", FieldType::Integer},
                           {"c", FieldType::Long},
                           {"d", FieldType::Single},
                           {"e", FieldType::Double},
                           {"f", FieldType::Currency},
                           {"g", FieldType::Text, 50},
                           {"h", FieldType::Text},
                           {"i", FieldType::Memo},
                           {"j", FieldType::LongBinary},
                           {"k", FieldType::Date}}};
    CreateDatabase(Path("all.map")).CreateTable(wanted);
    const TableDef read = OpenDatabase(Path("all.map")).Table("ALL");
    EXPECT_EQ(read.name, "All");
    ASSERT_EQ(read.fields.size(), wanted.fields.size());
    for (std::size_t i = 0; i < wanted.fields.size(); ++i) {
        EXPECT_EQ(read.fields[i].name, wanted.fields[i].name);
        EXPECT_EQ(read.fields[i].type, wanted.fields[i].type) << i;
        EXPECT_EQ(read.fields[i].size, wanted.fields[i].size) << i;
    }
}

TEST_F(DatabaseTest, CreateTable_KeepsTextsThatLookLikeNumbers) {
    Database database = CreateDatabase(Path("t.map"));
    database.CreateTable({"T", {{"a", FieldType::Text}, {"b", FieldType::Memo}, {"c", FieldType::Date}}});
    database.Execute("INSERT INTO T VALUES ('007', '1.50', '2004-01-07 09:15:00')");
    Recordset rows = database.OpenRecordset("SELECT * FROM T");
    EXPECT_EQ(rows.Text(0), "007");
    EXPECT_EQ(rows.Text(1), "1.50");
    EXPECT_EQ(rows.Text(2), "2004-01-07 09:15:00");
}

TEST_F(DatabaseTest, CreateTable_TwiceIsAnError) {
    Database database = Sample("a.map");
    EXPECT_EQ(Raised([&] {
                  database.CreateTable({"NODES", {{"x", FieldType::Long}}});
              }),
              "3010 Table 'NODES' already exists.");
}

TEST_F(DatabaseTest, Table_OfAnUnknownNameIsNotInTheCollection) {
    EXPECT_EQ(Raised([&] { Sample("a.map").Table("Links"); }), "3265 Item not found in this collection.");
}

TEST_F(DatabaseTest, AppendField_IsNullInTheRowsThatExist) {
    Database database = Sample("a.map", 2);
    database.AppendField("nodes", {"Alignment", FieldType::Long});
    Recordset rows = database.OpenRecordset("SELECT alignment FROM Nodes");
    EXPECT_TRUE(rows.IsNull(0));
    rows.Close();
    EXPECT_EQ(Raised([&] {
                  database.AppendField("Nodes", {"ALIGNMENT", FieldType::Long});
              }),
              "3191 Cannot define field more than once.");
}

TEST_F(DatabaseTest, Names_MatchWithoutRegardToCaseAndInBrackets) {
    Database database = Sample("a.map", 1);
    Recordset rows =
        database.OpenRecordset("SELECT [KEY], [left] FROM [nodes] WHERE [LEVEL]=0 ORDER BY [Key]");
    EXPECT_EQ(rows.Text(rows.Column("Key")), "node0");
    EXPECT_EQ(rows.Single(rows.Column("LEFT")), 0.5f);
}

TEST_F(DatabaseTest, Execute_TakesTrueAndFalse) {
    Database database = Sample("a.map", 4);
    database.Execute("UPDATE Nodes SET Hidden=True WHERE Hidden=False AND [Key]='node0'");
    Recordset rows = database.OpenRecordset("SELECT [Key] FROM Nodes WHERE Hidden=True ORDER BY [Key]");
    EXPECT_EQ(rows.Text(0), "node0");
}

TEST_F(DatabaseTest, Execute_RunsSeveralStatements) {
    Database database = Sample("a.map", 1);
    database.Execute("UPDATE Nodes SET [Level]=?; UPDATE Nodes SET [Left]=7;", kFailOnError, {5});
    Recordset rows = database.OpenRecordset("SELECT [Level], [Left] FROM Nodes");
    EXPECT_EQ(rows.Long(0), 5);
    EXPECT_EQ(rows.Single(1), 7.0f);
}

TEST_F(DatabaseTest, Execute_UndoesAStatementThatFails) {
    Database database = Sample("a.map", 3);
    database.Execute("CREATE UNIQUE INDEX One ON Nodes([Level])");
    EXPECT_EQ(NumberOf([&] { database.Execute("UPDATE Nodes SET [Level]=9"); }), kErrDuplicateKey);
    Recordset rows = database.OpenRecordset("SELECT COUNT(*) FROM Nodes WHERE [Level]=9");
    EXPECT_EQ(rows.Long(0), 0);
}

TEST_F(DatabaseTest, Execute_BindsEveryKindOfValue) {
    Database database = CreateDatabase(Path("v.map"));
    database.Execute("CREATE TABLE V (a, b, c, d, e, f, g)");
    database.Execute("INSERT INTO V VALUES (?,?,?,?,?,?,?)", kFailOnError,
                     {QVariant(), true, -5, 0.1f, QString::fromUtf8("d'\xC3\xA9"), QByteArray("\0\1", 2),
                      QDateTime(QDate(2004, 2, 19), QTime(16, 48, 33))});
    Recordset rows = database.OpenRecordset("SELECT * FROM V");
    EXPECT_TRUE(rows.IsNull(0));
    EXPECT_TRUE(rows.Boolean(1));
    EXPECT_EQ(rows.Long(2), -5);
    EXPECT_EQ(rows.Single(3), 0.1f);
    EXPECT_EQ(rows.Text(4), QString::fromUtf8("d'\xC3\xA9"));
    EXPECT_EQ(rows.Bytes(5), QByteArray("\0\1", 2));
    EXPECT_EQ(rows.Text(6), "2004-02-19 16:48:33");
}

TEST_F(DatabaseTest, Transactions_RollbackUndoesAndCommitKeeps) {
    Database database = Sample("a.map", 1);
    database.BeginTrans();
    database.Execute("DELETE FROM Nodes");
    database.Rollback();
    database.BeginTrans();
    database.Execute("UPDATE Nodes SET [Level]=3");
    database.CommitTrans(kForceFlush);
    database.Idle();
    database.Close();
    Database again = OpenDatabase(Path("a.map"));
    Recordset rows = again.OpenRecordset("SELECT [Level] FROM Nodes");
    EXPECT_EQ(rows.Long(0), 3);
}

TEST_F(DatabaseTest, Transactions_AnInnerOneIsUndoneAlone) {
    Database database = Sample("a.map");
    database.BeginTrans();
    database.Execute("INSERT INTO Nodes ([Key]) VALUES ('outer')");
    database.BeginTrans();
    database.Execute("INSERT INTO Nodes ([Key]) VALUES ('inner')");
    database.Rollback();
    database.BeginTrans();
    database.Execute("INSERT INTO Nodes ([Key]) VALUES ('second')");
    database.CommitTrans();
    database.CommitTrans();
    Recordset rows = database.OpenRecordset("SELECT group_concat([Key]) FROM Nodes");
    EXPECT_EQ(rows.Text(0), "outer,second");
}

TEST_F(DatabaseTest, Transactions_AnOuterRollbackUndoesTheInnerCommit) {
    Database database = Sample("a.map");
    database.BeginTrans();
    database.BeginTrans();
    database.Execute("INSERT INTO Nodes ([Key]) VALUES ('inner')");
    database.CommitTrans();
    database.Rollback();
    EXPECT_TRUE(database.OpenRecordset("SELECT * FROM Nodes").EndOfFile());
}

TEST_F(DatabaseTest, Transactions_EndWithoutABeginIsAnError) {
    Database database = Sample("a.map");
    const QString text =
        "3034 You tried to commit or rollback a transaction without first beginning a transaction.";
    EXPECT_EQ(Raised([&] { database.CommitTrans(); }), text);
    EXPECT_EQ(Raised([&] { database.Rollback(); }), text);
}

TEST_F(DatabaseTest, Transactions_AreUndoneWhenTheDatabaseGoes) {
    {
        Database database = Sample("a.map", 1);
        database.BeginTrans();
        database.Execute("DELETE FROM Nodes");
    }
    EXPECT_FALSE(OpenDatabase(Path("a.map")).OpenRecordset("SELECT * FROM Nodes").EndOfFile());
}

TEST_F(DatabaseTest, Close_MakesEveryLaterCallAnError) {
    Database database = Sample("a.map");
    database.Close();
    const QString text = "3420 Object invalid or no longer set.";
    EXPECT_EQ(Raised([&] { database.Execute("DELETE FROM Nodes"); }), text);
    EXPECT_EQ(Raised([&] { database.OpenRecordset("SELECT * FROM Nodes"); }), text);
    EXPECT_EQ(Raised([&] { database.TableDefs(); }), text);
    EXPECT_EQ(Raised([&] { database.BeginTrans(); }), text);
    database.Close();
}

TEST_F(DatabaseTest, Close_LeavesARecordsetReadable) {
    Database database = Sample("a.map", 2);
    Recordset rows = database.OpenRecordset("SELECT * FROM Nodes");
    database.Close();
    rows.MoveNext();
    EXPECT_EQ(rows.Text(0), "node1");
}

TEST_F(DatabaseTest, Triggers_OfAFileAreNotRun) {
    {
        Database database = Sample("a.map", 1);
        database.Execute("CREATE TRIGGER Evil AFTER UPDATE ON Nodes BEGIN DELETE FROM Nodes; END");
    }
    Database database = OpenDatabase(Path("a.map"));
    database.Execute("UPDATE Nodes SET [Level]=1");
    EXPECT_FALSE(database.OpenRecordset("SELECT * FROM Nodes").EndOfFile());
}

} // namespace storage::test
