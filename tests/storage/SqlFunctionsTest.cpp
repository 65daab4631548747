#include "StorageFixture.h"
#include "tests/BritishLocale.h"

namespace storage::test {

class SqlFunctionsTest : public StorageTest {
protected:
    const tests::BritishLocale british_;
    Database database_ = Sample("s.map");
};

TEST_F(SqlFunctionsTest, Val_StoresTheNumberThatANameBeginsWith) {
    const std::pair<const char *, double> rows[] = {{"3", 3},       {"12 Important", 12}, {"Important", 0},
                                                    {"", 0},        {"it''s", 0},         {" 1 0", 10},
                                                    {"-2.5", -2.5}, {"&H10", 16}};
    for (const auto &[name, number] : rows) {
        Recordset value = database_.OpenRecordset(QStringLiteral("SELECT VAL('%1')").arg(name));
        EXPECT_EQ(value.Double(0), number) << name;
    }
    EXPECT_EQ(database_.OpenRecordset("SELECT typeof(val('3'))").Text(0), "integer");
    EXPECT_EQ(Raised([&] { database_.OpenRecordset("SELECT VAL(NULL)"); }), "94 Invalid use of Null");
    EXPECT_EQ(Raised([&] { database_.OpenRecordset("SELECT VAL('1e999')"); }), "6 Overflow");
}

TEST_F(SqlFunctionsTest, CDate_OrdersTextsByDate) {
    database_.Execute("CREATE TABLE SortTable ([Field0] TEXT(255))");
    for (const char *month : {"March 2004", "December 2003", "January 2004", "April 1999"})
        database_.Execute("INSERT INTO SortTable VALUES (?)", kFailOnError, {QString(month)});
    Recordset rows = database_.OpenRecordset("SELECT * FROM [SortTable] ORDER BY CDATE([Field0])");
    QStringList order;
    for (; !rows.EndOfFile(); rows.MoveNext()) order += rows.Text(0);
    EXPECT_EQ(order.join(", "), "April 1999, December 2003, January 2004, March 2004");
}

TEST_F(SqlFunctionsTest, CDate_OfNoDateIsAMismatch) {
    EXPECT_EQ(Raised([&] { database_.OpenRecordset("SELECT CDATE('soon')"); }),
              "3464 Data type mismatch in criteria expression.");
    EXPECT_EQ(Raised([&] { database_.OpenRecordset("SELECT CDATE(NULL)"); }), "94 Invalid use of Null");
}

} // namespace storage::test
