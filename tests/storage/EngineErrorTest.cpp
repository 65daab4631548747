#include "StorageFixture.h"
#include "tests/Errors.h"

namespace storage::test {

class EngineErrorTest : public StorageTest {
protected:
    QString RaisedBySql(const QString &sql) {
        return Raised([&] { database_.Execute(sql); });
    }
    Database database_ = Sample("e.map", 2);
};

TEST_F(EngineErrorTest, MissingTable_IsNamed) {
    const QString text =
        "3078 The database engine cannot find the input table or query 'Slices'. Make sure it exists "
        "and that its name is spelled correctly.";
    EXPECT_EQ(RaisedBySql("DELETE FROM [Slices]"), text);
    EXPECT_EQ(Raised([&] { database_.OpenRecordset("SELECT * FROM Slices ORDER BY [Index]"); }), text);
    EXPECT_EQ(Raised([&] { database_.Prepare("INSERT INTO Slices VALUES (1)"); }), text);
    EXPECT_EQ(Raised([&] { database_.AppendField("Slices", {"x", FieldType::Long}); }), text);
}

TEST_F(EngineErrorTest, UnknownNames_AreCountedAsParameters) {
    EXPECT_EQ(RaisedBySql("DELETE FROM Nodes WHERE Slice=0"), "3061 Too few parameters. Expected 1.");
    EXPECT_EQ(
        Raised([&] { database_.OpenRecordset("SELECT [Key], Text, [Event] FROM Nodes WHERE [Slice]=0"); }),
        "3061 Too few parameters. Expected 3.");
}

TEST_F(EngineErrorTest, MissingValues_AreCounted) {
    EXPECT_EQ(
        Raised([&] { database_.OpenRecordset("SELECT * FROM Nodes WHERE [Level]>? AND [Level]<?", {1}); }),
        "3061 Too few parameters. Expected 1.");
}

TEST_F(EngineErrorTest, Insert_NamesTheFieldThatIsUnknown) {
    EXPECT_EQ(RaisedBySql("INSERT INTO Nodes ([Key], [Alignment]) VALUES ('a', 1)"),
              "3127 The INSERT INTO statement contains the following unknown field name: 'Alignment'. Make "
              "sure you "
              "have typed the name correctly, and try the operation again.");
    EXPECT_EQ(RaisedBySql("INSERT INTO Nodes ([Key]) VALUES ('a', 1)"),
              "3346 Number of query values and destination fields are not the same.");
    EXPECT_EQ(RaisedBySql("INSERT INTO Nodes VALUES ('a', 1)"),
              "3346 Number of query values and destination fields are not the same.");
}

TEST_F(EngineErrorTest, Syntax_ShowsTheStatement) {
    EXPECT_EQ(RaisedBySql("SELEC 1"), "3075 Syntax error in query expression 'SELEC 1'.");
    EXPECT_EQ(RaisedBySql("SELECT * FROM"), "3075 Syntax error in query expression 'SELECT * FROM'.");
    EXPECT_EQ(RaisedBySql("SELECT 'x"), "3075 Syntax error in query expression 'SELECT 'x'.");
    EXPECT_EQ(RaisedBySql("SELECT FOO(1)"), "3085 Undefined function 'FOO' in expression.");
}

TEST_F(EngineErrorTest, Constraints_AreDuplicatesAndNulls) {
    database_.Execute("CREATE TABLE C (a TEXT NOT NULL UNIQUE)");
    database_.Execute("INSERT INTO C VALUES ('x')");
    EXPECT_TRUE(RaisedBySql("INSERT INTO C VALUES ('x')")
                    .startsWith("3022 The changes you requested to the table were not successful"));
    EXPECT_TRUE(
        RaisedBySql("INSERT INTO C VALUES (NULL)").startsWith("3314 The field 'C.a' cannot contain a Null"));
}

TEST_F(EngineErrorTest, DiskFull_IsReportedAndNothingIsWritten) {
    database_.Execute("PRAGMA max_page_count=3");
    const QByteArray large(100000, 'x');
    EXPECT_EQ(
        Raised([&] { database_.Execute("INSERT INTO Nodes (Data) VALUES (?)", kFailOnError, {large}); }),
        "3183 Not enough space on disk.");
    EXPECT_EQ(database_.OpenRecordset("SELECT COUNT(*) FROM Nodes").Long(0), 2);
}

TEST_F(EngineErrorTest, InUse_IsReportedWhenAnotherWrites) {
    Database other = OpenDatabase(Path("e.map"));
    other.Execute("BEGIN IMMEDIATE");
    database_.Execute("PRAGMA busy_timeout=0");
    EXPECT_EQ(RaisedBySql("DELETE FROM Nodes"),
              "3045 Could not use '" + database_.Name() + "'; file already in use.");
}

TEST_F(EngineErrorTest, Source_IsTheFacade) {
    const support::Error error = tests::ErrorOf([&] { database_.Execute("nonsense"); });
    EXPECT_EQ(error.Source(), "Storage.Database");
}

} // namespace storage::test
