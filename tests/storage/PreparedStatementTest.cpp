#include "StorageFixture.h"

namespace storage::test {

class PreparedStatementTest : public StorageTest {
protected:
    Database database_ = Sample("p.map");
};

TEST_F(PreparedStatementTest, Run_WritesEveryKindOfValue) {
    PreparedStatement insert = database_.Prepare("INSERT INTO Nodes VALUES (?, ?, ?, ?, ?)");
    const QByteArray bytes("\0\1\2", 3);
    insert.BindText(0, QString::fromUtf8("caf\xC3\xA9"));
    insert.BindDouble(1, 0.1f);
    insert.BindBoolean(2, true);
    insert.BindLong(3, -7);
    insert.BindBytes(4, bytes);
    insert.Run();
    Recordset rows = database_.OpenRecordset("SELECT * FROM Nodes");
    EXPECT_EQ(rows.Text(0), QString::fromUtf8("caf\xC3\xA9"));
    EXPECT_EQ(rows.Single(1), 0.1f);
    EXPECT_TRUE(rows.Boolean(2));
    EXPECT_EQ(rows.Long(3), -7);
    EXPECT_EQ(rows.Bytes(4), bytes);
}

TEST_F(PreparedStatementTest, Run_ForgetsTheValues) {
    PreparedStatement insert = database_.Prepare("INSERT INTO Nodes ([Key], [Level]) VALUES (?, ?)");
    insert.BindUtf8(0, "first");
    insert.BindLong(1, 1);
    insert.Run();
    insert.BindUtf8(0, "second");
    insert.Run();
    Recordset rows = database_.OpenRecordset("SELECT [Level] FROM Nodes WHERE [Key]='second'");
    EXPECT_TRUE(rows.IsNull(0));
}

TEST_F(PreparedStatementTest, Empty_IsNotNull) {
    PreparedStatement insert = database_.Prepare("INSERT INTO Nodes ([Key], Data) VALUES (?, ?)");
    insert.BindText(0, QString());
    insert.BindBytes(1, QByteArray());
    insert.Run();
    insert.BindUtf8(0, {});
    insert.BindNull(1);
    insert.Run();
    Recordset rows = database_.OpenRecordset("SELECT [Key], Data FROM Nodes");
    EXPECT_FALSE(rows.IsNull(0));
    EXPECT_FALSE(rows.IsNull(1));
    rows.MoveNext();
    EXPECT_FALSE(rows.IsNull(0));
    EXPECT_TRUE(rows.IsNull(1));
}

TEST_F(PreparedStatementTest, Run_AfterAFailureWorksAgain) {
    database_.Execute("CREATE UNIQUE INDEX One ON Nodes([Key])");
    PreparedStatement insert = database_.Prepare("INSERT INTO Nodes ([Key]) VALUES (?)");
    const auto run = [&insert](std::string_view key) {
        insert.BindUtf8(0, key);
        insert.Run();
    };
    run("a");
    EXPECT_EQ(NumberOf([&] { run("a"); }), kErrDuplicateKey);
    run("b");
    EXPECT_EQ(database_.OpenRecordset("SELECT COUNT(*) FROM Nodes").Long(0), 2);
}

TEST_F(PreparedStatementTest, Bind_OfAMarkThatIsNotThereIsAnError) {
    PreparedStatement insert = database_.Prepare("INSERT INTO Nodes ([Key]) VALUES (?)");
    EXPECT_NE(NumberOf([&] { insert.BindLong(1, 1); }), 0);
    EXPECT_NE(NumberOf([&] { insert.BindLong(-1, 1); }), 0);
}

TEST_F(PreparedStatementTest, Prepare_OfNothingIsASyntaxError) {
    EXPECT_EQ(NumberOf([&] { database_.Prepare("  "); }), kErrSyntax);
}

} // namespace storage::test
