#include "storage/text/DateText.h"

#include "StorageFixture.h"
#include "tests/BritishLocale.h"

#include <QDate>
#include <QLocale>

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

TEST_F(SqlFunctionsTest, ReadDate_UnderstandsTheCommonForms) {
    const std::pair<const char *, const char *> rows[] = {
        {"2004-01-07", "2004-01-07 00:00:00"},
        {"2004-01-07 09:15:02", "2004-01-07 09:15:02"},
        {"2004-01-07T09:15", "2004-01-07 09:15:00"},
        {"7 Jan 2004", "2004-01-07 00:00:00"},
        {"07-Jan-04", "2004-01-07 00:00:00"},
        {"January 7, 2004 3:05 PM", "2004-01-07 15:05:00"},
        {"Wednesday, 7 January 2004", "2004-01-07 00:00:00"},
        {"january 2004", "2004-01-01 00:00:00"},
        {"7th Jan 2004 12 AM", "2004-01-07 00:00:00"},
        {"3/4/2004", "2004-04-03 00:00:00"},
        {"3/14/2004", "2004-03-14 00:00:00"},
        {"31.12.99", "1999-12-31 00:00:00"},
        {"2/2004", "2004-02-01 00:00:00"},
        {"38000", "2004-01-14 00:00:00"},
        {"0.5", "1899-12-30 12:00:00"},
        {"-1.25", "1899-12-29 06:00:00"},
        {"12:30", "1899-12-30 12:30:00"},
    };
    for (const auto &[text, date] : rows) EXPECT_EQ(ReadDate(text), date) << text;
}

TEST_F(SqlFunctionsTest, ReadDate_TakesMonthsOfTheLocale) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(ReadDate(QString::fromUtf8("3. M\xC3\xA4rz 2004")), "2004-03-03 00:00:00");
    EXPECT_EQ(ReadDate("March 2004"), "2004-03-01 00:00:00");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(ReadDate("3/4/2004"), "2004-03-04 00:00:00");
}

TEST_F(SqlFunctionsTest, ReadDate_GivesNothingForOtherTexts) {
    for (const char *text : {"", "soon", "32 Jan 2004", "30 Feb 2004", "2004-13-01", "25:00", "13:00 PM",
                             "1/2/3/4", "Jan Feb 2004", "3000000", "12345-01-01", "January"})
        EXPECT_EQ(ReadDate(text), "") << text;
}

TEST_F(SqlFunctionsTest, ReadDate_WithoutAYearMeansThisYear) {
    EXPECT_EQ(ReadDate("7 Jan"), QStringLiteral("%1-01-07 00:00:00").arg(QDate::currentDate().year()));
}

} // namespace storage::test
