#include "timeline/DateText.h"

#include <gmock/gmock.h>
#include <QSet>

namespace timeline {
namespace {

const QLocale kEnglish(QLocale::English, QLocale::UnitedKingdom);
const QLocale kAmerican(QLocale::English, QLocale::UnitedStates);
const QLocale kGerman(QLocale::German);

QString Read(const char *text, const QLocale &locale = kEnglish) {
    const auto date = ParseDate(QString::fromUtf8(text), locale);
    return date ? date->toString(Qt::ISODate) : QStringLiteral("none");
}

// One locale for each set of month names that any has.
QList<QLocale> LanguagesByNames() {
    QList<QLocale> distinct;
    QSet<QString> seen;
    for (const QLocale &locale :
         QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory)) {
        QString names;
        for (int month = 1; month <= 12; ++month)
            for (const auto format : {QLocale::LongFormat, QLocale::ShortFormat})
                names += locale.standaloneMonthName(month, format) + locale.monthName(month, format) + u'|';
        if (!seen.contains(names)) distinct.append(locale);
        seen.insert(names);
    }
    return distinct;
}

std::string Where(const QLocale &locale, const QString &text) {
    return (locale.name() + u' ' + text).toStdString();
}

TEST(DateText, EveryMonthIsReadBackFromEveryPatternInEveryLanguage) {
    const QList<QLocale> languages = LanguagesByNames();
    ASSERT_GT(languages.size(), 100);
    for (const QLocale &locale : languages) {
        for (int month = 0; month < 12; ++month) {
            const QDate date = QDate(1998, 1, 1).addMonths(month);
            for (const char *pattern : kDisplayPatterns) {
                const QString text = FormatDate(date, QLatin1String(pattern), locale);
                ASSERT_EQ(text.count(u' ') + text.count(u'-'), 1) << Where(locale, text);
                ASSERT_EQ(ParseDate(text, locale), date) << Where(locale, text);
            }
            for (const int day : {1, 13, 28}) {
                const QDate exact = date.addDays(day - 1);
                const QString text = FormatDate(exact, kDayPattern, locale);
                ASSERT_EQ(ParseDate(text, locale), exact) << Where(locale, text);
            }
        }
    }
}

TEST(DateText, EveryMonthOfTwoCenturiesIsReadBack) {
    for (QDate date(1900, 1, 1); date.year() <= 2100; date = date.addMonths(1))
        EXPECT_EQ(ParseDate(FormatDate(date, kMonthPattern, kGerman), kGerman), date);
}

TEST(DateText, PatternsDoNotMindCase) {
    const QDate date(2004, 3, 7);
    EXPECT_EQ(FormatDate(date, QStringLiteral("MMMM YYYY"), kEnglish), QStringLiteral("March 2004"));
    EXPECT_EQ(FormatDate(date, QStringLiteral("mmm-yy"), kEnglish), QStringLiteral("Mar-04"));
    EXPECT_EQ(FormatDate(date, QStringLiteral("dd MMMM yyyy"), kEnglish), QStringLiteral("07 March 2004"));
    EXPECT_EQ(FormatDate(QDate(999, 3, 7), QStringLiteral("MM YYYY"), kEnglish), QStringLiteral("03 0999"));
}

TEST(DateText, WhatPeopleTypeIsRead) {
    EXPECT_EQ(Read("March 2004"), QStringLiteral("2004-03-01"));
    EXPECT_EQ(Read("Mar-04"), QStringLiteral("2004-03-01"));
    EXPECT_EQ(Read("03 2004"), QStringLiteral("2004-03-01"));
    EXPECT_EQ(Read("14 March 2004"), QStringLiteral("2004-03-14"));
    EXPECT_EQ(Read(" 14  march, 2004 "), QStringLiteral("2004-03-14"));
    EXPECT_EQ(Read("March 14, 2004"), QStringLiteral("2004-03-14"));
    EXPECT_EQ(Read("2004 March"), QStringLiteral("2004-03-01"));
    EXPECT_EQ(Read("2004-03-14"), QStringLiteral("2004-03-14"));
    EXPECT_EQ(Read("5 Mar-04"), QStringLiteral("2004-03-05"));
    EXPECT_EQ(Read("14 März 2004", kGerman), QStringLiteral("2004-03-14"));
}

TEST(DateText, DigitsAloneHaveTheOrderOfTheLanguage) {
    EXPECT_EQ(Read("03/04/2004", kEnglish), QStringLiteral("2004-04-03"));
    EXPECT_EQ(Read("03/04/2004", kAmerican), QStringLiteral("2004-03-04"));
    EXPECT_EQ(Read("14/03/2004", kAmerican), QStringLiteral("2004-03-14"));
    EXPECT_EQ(Read("03 04 2004", kAmerican), QStringLiteral("2004-04-03"));
    EXPECT_EQ(Read("3.4.04", kGerman), QStringLiteral("2004-04-03"));
}

TEST(DateText, TwoDigitsOfAYearAre1930To2029) {
    EXPECT_EQ(Read("Mar 29"), QStringLiteral("2029-03-01"));
    EXPECT_EQ(Read("Mar 30"), QStringLiteral("1930-03-01"));
}

TEST(DateText, WhatIsNoDateIsNone) {
    for (const char *text :
         {"", "New Item", "March", "2004", "13 2004", "31 February 2004", "00 2004", "March 2004 plan", "99",
          "1 2 3 4", "March 99999", "12345678", "March 3100", "-", "1-", "March 14 15 16"})
        EXPECT_EQ(Read(text), QStringLiteral("none")) << text;
}

TEST(DateText, YearsOutsideOfTheRangeAreNoDates) {
    EXPECT_EQ(Read("March 100"), QStringLiteral("0100-03-01"));
    EXPECT_EQ(Read("March 3099"), QStringLiteral("3099-03-01"));
    EXPECT_EQ(Read("March 099"), QStringLiteral("none"));
}

TEST(DateText, AMapOfAnotherLanguageIsRead) {
    EXPECT_EQ(Read("14 March 2004", kGerman), QStringLiteral("2004-03-14"));
    EXPECT_EQ(Read("Dezember 2004", kEnglish), QStringLiteral("2004-12-01"));
    EXPECT_EQ(Read("décembre 2004", kEnglish), QStringLiteral("2004-12-01"));
}

// October in one language and November in another: the one that other dates were in decides.
TEST(DateText, ANameOfTwoLanguagesIsReadInTheOneThatWasMet) {
    EXPECT_EQ(Read("sierpień 2004"), QStringLiteral("2004-08-01"));
    EXPECT_EQ(Read("listopad 2004"), QStringLiteral("2004-11-01"));
    EXPECT_EQ(Read("srpanj 2004"), QStringLiteral("2004-07-01"));
    EXPECT_EQ(Read("listopad 2004"), QStringLiteral("2004-10-01"));
}

TEST(DateText, MonthBoundariesAreCounted) {
    EXPECT_EQ(MonthBoundaries(QDate(2004, 1, 31), QDate(2004, 2, 1)), 1);
    EXPECT_EQ(MonthBoundaries(QDate(2004, 3, 1), QDate(2003, 12, 1)), -3);
}

} // namespace
} // namespace timeline
