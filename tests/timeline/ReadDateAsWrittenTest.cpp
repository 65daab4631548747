#include "timeline/ReadDateAsWritten.h"

#include "tests/timeline/TimelineTest.h"

namespace timeline {

namespace {

const QLocale kEnglish(QLocale::English, QLocale::UnitedKingdom);
const QLocale kAmerican(QLocale::English, QLocale::UnitedStates);
const QLocale kGerman(QLocale::German, QLocale::Germany);
const QLocale kFrench(QLocale::French, QLocale::France);

const QDate kToday(2026, 11, 20); // a Friday

struct Written {
    const char *text, *date;
};

std::string Read(const char *text, const QLocale &locale = kEnglish, const DateView &view = {kToday}) {
    const DateRead read = ReadDateAsWritten(QString::fromUtf8(text), view, locale);
    return read.date ? read.date->toString(Qt::ISODate).toStdString() : "none";
}

std::string Told(const char *text, const QLocale &locale = kEnglish) {
    return ReadDateAsWritten(QString::fromUtf8(text), {kToday}, locale).told.toStdString();
}

void Expect(std::initializer_list<Written> rows, const QLocale &locale = kEnglish,
            const DateView &view = {kToday}) {
    for (const auto &[text, date] : rows) EXPECT_EQ(Read(text, locale, view), date) << text;
}

} // namespace

TEST(DateAsWritten, WholeDatesAreReadAsEver) {
    Expect({{"March 2004", "2004-03-01"},
            {"Mar-04", "2004-03-01"},
            {"Mar 14", "2014-03-01"},
            {"03 2004", "2004-03-01"},
            {"03-04", "2004-03-01"},
            {"14 March 2004", "2004-03-14"},
            {"14/3/2004", "2004-03-14"},
            {"2004-03-14", "2004-03-14"},
            {"5 Mar-04", "2004-03-05"},
            {"14th of March 2004", "2004-03-14"},
            {"March 14th, 2004", "2004-03-14"}});
}

TEST(DateAsWritten, ADayWithoutAYearIsTheNextOneToCome) {
    Expect({{"14 Mar", "2027-03-14"},
            {"14. March", "2027-03-14"},
            {"14-mar", "2027-03-14"},
            {"14th March", "2027-03-14"},
            {"March 14th", "2027-03-14"},
            {"1st of december", "2026-12-01"},
            {"20 Nov", "2026-11-20"},
            {"19 Nov", "2027-11-19"},
            {"29 Feb", "2028-02-29"},
            {"31 Feb", "none"},
            {"March", "2027-03-01"}});
    EXPECT_EQ(Read("29 Feb", kEnglish, {QDate(2096, 3, 1)}), "2104-02-29");
}

TEST(DateAsWritten, WithAStripItLiesInTheYearsOfThat) {
    const auto strip = [](int first, int last) {
        return DateView{kToday, std::pair(QDate(first, 1, 1), QDate(last, 12, 1))};
    };
    EXPECT_EQ(Read("14 Mar", kEnglish, strip(2004, 2004)), "2004-03-14");
    EXPECT_EQ(Read("14 Mar", kEnglish, strip(2026, 2026)), "2026-03-14");
    EXPECT_EQ(Read("14 Mar", kEnglish, strip(2025, 2030)), "2027-03-14");
    EXPECT_EQ(Read("14 Mar", kEnglish, strip(2031, 2033)), "2031-03-14");
    EXPECT_EQ(Read("week 14", kEnglish, strip(2004, 2004)), "2004-03-29");
    EXPECT_EQ(Read("29 Feb", kEnglish, strip(2027, 2027)), "2028-02-29") << "that year has none";
    EXPECT_EQ(Read("tomorrow", kEnglish, strip(2004, 2004)), "2026-11-21");
}

TEST(DateAsWritten, TwoNumbersHaveTheOrderOfTheLanguage) {
    EXPECT_EQ(Read("5/3"), "2027-03-05");
    EXPECT_EQ(Read("5/3", kAmerican), "2027-05-03");
    EXPECT_EQ(Read("25/3", kAmerican), "2027-03-25");
    EXPECT_EQ(Read("3/25"), "2027-03-25");
    EXPECT_EQ(Read("5.3.", kGerman), "2027-03-05");
    EXPECT_EQ(Read("31/2"), "none");
}

TEST(DateAsWritten, StepsAndDistancesCountFromToday) {
    Expect({{"today", "2026-11-20"},
            {"Tomorrow", "2026-11-21"},
            {"yesterday", "2026-11-19"},
            {"+2w", "2026-12-04"},
            {"-10d", "2026-11-10"},
            {"+5", "2026-11-25"},
            {"+ 3 months", "2027-02-20"},
            {"-1y", "2025-11-20"},
            {"in 3 months", "2027-02-20"},
            {"in a week", "2026-11-27"},
            {"2 weeks ago", "2026-11-06"},
            {"2 days from now", "2026-11-22"},
            {"3 m", "none"}});
    EXPECT_EQ(Read("+1m", kEnglish, {QDate(2027, 1, 31)}), "2027-02-28");
}

TEST(DateAsWritten, DaysOfTheWeekAreTheNextOnes) {
    Expect({{"friday", "2026-11-27"},
            {"next Friday", "2026-11-27"},
            {"sat", "2026-11-21"},
            {"on Monday", "2026-11-23"},
            {"last friday", "2026-11-13"},
            {"last thursday", "2026-11-19"}});
}

TEST(DateAsWritten, PeriodsAreTheirFirstDayOrTheOneThatIsNamed) {
    Expect({{"week 14", "2027-04-05"},
            {"w14 2027", "2027-04-05"},
            {"2027-W14", "2027-04-05"},
            {"w53 2026", "2026-12-28"},
            {"w53 2027", "none"},
            {"week 60", "none"},
            {"Q3 2026", "2026-07-01"},
            {"2026 q3", "2026-07-01"},
            {"q1", "2027-01-01"},
            {"next week", "2026-11-23"},
            {"next month", "2026-12-01"},
            {"this quarter", "2026-10-01"},
            {"next quarter", "2027-01-01"},
            {"last year", "2025-01-01"},
            {"end of March", "2027-03-31"},
            {"end of february 2028", "2028-02-29"},
            {"end of month", "2026-11-30"},
            {"the end of the year", "2026-12-31"},
            {"end of Q3 2026", "2026-09-30"},
            {"end of 2027", "2027-12-31"},
            {"mid june", "2027-06-15"},
            {"beginning of next month", "2026-12-01"},
            {"month", "none"},
            {"2027", "none"},
            {"q5", "none"}});
}

TEST(DateAsWritten, NamesOfTheLanguageAreReadBesideTheEnglishOnes) {
    Expect({{"14. März", "2027-03-14"},
            {"14 march", "2027-03-14"},
            {"Montag", "2026-11-23"},
            {"next montag", "2026-11-23"},
            {"KW 14", "2027-04-05"},
            {"end of Mai", "2027-05-31"},
            {"monday", "2026-11-23"},
            {"today", "2026-11-20"}},
           kGerman);
    EXPECT_EQ(Read("mardi", kFrench), "2026-11-24");
    EXPECT_EQ(Read("14 juillet", kFrench), "2027-07-14");
}

TEST(DateAsWritten, TwoDigitsOfAYearAreEightyYearsBackToNineteenOn) {
    Expect({{"14 March 45", "2045-03-14"},
            {"14 March 46", "1946-03-14"},
            {"Mar 45", "2045-03-01"},
            {"14/3/45", "2045-03-14"},
            {"q3 46", "1946-07-01"},
            {"w1 45", "2045-01-02"}});
}

TEST(DateAsWritten, TheDateIsToldInFullAndWhyThereIsNone) {
    EXPECT_EQ(Told("14 mar"), "Sunday, 14 March 2027");
    EXPECT_EQ(Told("1 mar"), "Monday, 1 March 2027");
    EXPECT_EQ(Told("14 mar", kGerman), "Sonntag, 14. März 2027");
    EXPECT_EQ(Told("14 mar", kAmerican), "Sunday, March 14, 2027");
    EXPECT_EQ(Told("14 mars", kFrench), "dimanche 14 mars 2027");
    EXPECT_EQ(Told(""), "Such as 14 March, next Friday, +2w or end of June");
    EXPECT_EQ(Told("31 February 2027"), "There is no such day");
    EXPECT_EQ(Told("31 feb"), "There is no such day");
    EXPECT_EQ(Told("31/2/2027"), "There is no such day");
    EXPECT_EQ(Told("soon"), "This is not understood as a date");
    EXPECT_EQ(Told("+9000y"), "Dates go from the year 100 to 3099");
}

TEST(DateAsWritten, TheWordsForDaysAreThoseOfTheLanguage) {
    const QLocale dutch(QLocale::Dutch), italian(QLocale::Italian), spanish(QLocale::Spanish);
    Expect({{"heute", "2026-11-20"},
            {"Morgen", "2026-11-21"},
            {"übermorgen", "2026-11-22"},
            {"gestern", "2026-11-19"},
            {"vorgestern", "2026-11-18"},
            {"tomorrow", "2026-11-21"}},
           kGerman);
    Expect({{"aujourd’hui", "2026-11-20"},
            {"aujourd'hui", "2026-11-20"},
            {"demain", "2026-11-21"},
            {"après-demain", "2026-11-22"},
            {"hier", "2026-11-19"},
            {"avant-hier", "2026-11-18"}},
           kFrench);
    Expect({{"hoy", "2026-11-20"},
            {"mañana", "2026-11-21"},
            {"pasado mañana", "2026-11-22"},
            {"ayer", "2026-11-19"},
            {"anteayer", "2026-11-18"}},
           spanish);
    Expect({{"oggi", "2026-11-20"},
            {"domani", "2026-11-21"},
            {"dopodomani", "2026-11-22"},
            {"ieri", "2026-11-19"},
            {"l'altro ieri", "2026-11-18"}},
           italian);
    Expect({{"vandaag", "2026-11-20"},
            {"morgen", "2026-11-21"},
            {"overmorgen", "2026-11-22"},
            {"gisteren", "2026-11-19"},
            {"eergisteren", "2026-11-18"}},
           dutch);
    Expect({{"heute", "none"}, {"morgen", "none"}, {"hoy", "none"}});
}

TEST(DateAsWritten, WordsBesideDaysAndMonthsAreThoseOfTheLanguage) {
    const QLocale dutch(QLocale::Dutch), italian(QLocale::Italian), spanish(QLocale::Spanish);
    Expect({{"nächsten Freitag", "2026-11-27"},
            {"am kommenden Montag", "2026-11-23"},
            {"letzten Montag", "2026-11-16"},
            {"am 14. März", "2027-03-14"},
            {"in 3 Wochen", "2026-12-11"},
            {"in einem Monat", "2026-12-20"},
            {"vor 2 Tagen", "2026-11-18"},
            {"+2 Wochen", "2026-12-04"},
            {"nächste Woche", "2026-11-23"},
            {"Ende März", "2027-03-31"},
            {"Ende des Monats", "2026-11-30"},
            {"Monatsende", "2026-11-30"},
            {"Anfang nächsten Jahres", "2027-01-01"},
            {"Mitte Juni 2027", "2027-06-15"}},
           kGerman);
    Expect({{"vendredi prochain", "2026-11-27"},
            {"lundi dernier", "2026-11-16"},
            {"le 14 mars", "2027-03-14"},
            {"1er mars", "2027-03-01"},
            {"dans 3 semaines", "2026-12-11"},
            {"il y a 2 jours", "2026-11-18"},
            {"la semaine prochaine", "2026-11-23"},
            {"l'année prochaine", "2027-01-01"},
            {"fin mars", "2027-03-31"},
            {"fin d'octobre", "2027-10-31"},
            {"mi-juin 2027", "2027-06-15"}},
           kFrench);
    Expect({{"el próximo viernes", "2026-11-27"},
            {"el lunes pasado", "2026-11-16"},
            {"el lunes que viene", "2026-11-23"},
            {"14 de marzo", "2027-03-14"},
            {"el 14 de marzo de 2028", "2028-03-14"},
            {"en 3 semanas", "2026-12-11"},
            {"dentro de un mes", "2026-12-20"},
            {"hace 2 días", "2026-11-18"},
            {"fin de marzo", "2027-03-31"}},
           spanish);
    Expect({{"venerdì prossimo", "2026-11-27"},
            {"il prossimo venerdì", "2026-11-27"},
            {"lunedì scorso", "2026-11-16"},
            {"tra 3 settimane", "2026-12-11"},
            {"2 giorni fa", "2026-11-18"},
            {"fine marzo", "2027-03-31"},
            {"metà giugno 2027", "2027-06-15"}},
           italian);
    Expect({{"volgende vrijdag", "2026-11-27"},
            {"aanstaande maandag", "2026-11-23"},
            {"afgelopen maandag", "2026-11-16"},
            {"over 3 weken", "2026-12-11"},
            {"2 dagen geleden", "2026-11-18"},
            {"eind maart", "2027-03-31"}},
           dutch);
}

TEST(DateAsWritten, WordsOfTheLanguageThatMeanNoDayAreNoDate) {
    EXPECT_EQ(Read("bald", kGerman), "none");
    EXPECT_EQ(Read("nächsten Sankt Nimmerlein", kGerman), "none");
    EXPECT_EQ(Told("31. Juni", kGerman), "There is no such day");
}

namespace testing {

TEST_F(TimelineTest, ADateIsSeenFromTheMonthsOfTheStrip) {
    EXPECT_FALSE(ViewFrom(kToday, flow).strip);
    Month(QStringLiteral("June 2004"));
    Month(QStringLiteral("March 2004"));
    Month(QStringLiteral("no date"));
    const DateView view = ViewFrom(kToday, flow);
    EXPECT_EQ(view.today, kToday);
    EXPECT_EQ(view.strip, std::pair(QDate(2004, 3, 1), QDate(2004, 6, 1)));
}

} // namespace testing

} // namespace timeline
