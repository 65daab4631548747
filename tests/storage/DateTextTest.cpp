#include "storage/text/DateText.h"

#include "StorageFixture.h"
#include "tests/BritishLocale.h"

#include <QDate>
#include <QLocale>

namespace storage::test {

class ReadDateTest : public ::testing::Test {
    const tests::BritishLocale british_;
};

TEST_F(ReadDateTest, UnderstandsTheCommonForms) {
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

TEST_F(ReadDateTest, TakesMonthsOfTheLocale) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(ReadDate(QString::fromUtf8("3. M\xC3\xA4rz 2004")), "2004-03-03 00:00:00");
    EXPECT_EQ(ReadDate("March 2004"), "2004-03-01 00:00:00");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(ReadDate("3/4/2004"), "2004-03-04 00:00:00");
}

TEST_F(ReadDateTest, GivesNothingForOtherTexts) {
    for (const char *text : {"", "soon", "32 Jan 2004", "30 Feb 2004", "2004-13-01", "25:00", "13:00 PM",
                             "1/2/3/4", "Jan Feb 2004", "3000000", "12345-01-01", "January"})
        EXPECT_EQ(ReadDate(text), "") << text;
}

TEST_F(ReadDateTest, WithoutAYearMeansThisYear) {
    EXPECT_EQ(ReadDate("7 Jan"), QStringLiteral("%1-01-07 00:00:00").arg(QDate::currentDate().year()));
}

} // namespace storage::test
