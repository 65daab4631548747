// Dates as texts. The timeline keeps its dates as texts and compares them as texts, so what this writes it
// reads back, in every language.
#pragma once

#include <optional>
#include <QDate>
#include <QLocale>
#include <QString>
#include <QStringList>

namespace timeline {

inline const QString kMonthPattern = QStringLiteral("MMMM YYYY");  // canonical month
inline const QString kDayPattern = QStringLiteral("dd mmmm yyyy"); // canonical day
// The patterns in which months are shown, in the order of the list that offers them.
inline constexpr const char *kDisplayPatterns[] = {"MM YYYY",   "MMM YYYY", "MMMM YYYY", "MM YY",
                                                   "MMM YY",    "MMMM YY",  "MM-YYYY",   "MMM-YYYY",
                                                   "MMMM-YYYY", "MM-YY",    "MMM-YY",    "MMMM-YY"};

// Years outside of these are no dates.
constexpr int kFirstYear = 100, kLastYear = 3099;
bool IsInYears(const QDate &date); // false for a null one

// The date in the pattern: "MMMM" the month's name, "MMM" its short name, "MM" two digits, "dd" the day in
// two digits, "YYYY" and "YY" the year; upper and lower case are the same, anything else stands as it is.
// Digits are plain ones. A name never holds a blank or a hyphen (no-break ones stand in their place), so a
// month in a display pattern holds exactly one.
QString FormatDate(const QDate &date, const QString &pattern, const QLocale &locale = QLocale());

// The date in a text as a person types it: March 2004, Mar-04, 03 2004, 14 March 2004, 14/03/2004,
// 2004-03-14. Without a day it is the first of the month. Month names are looked up in `locale`, then in
// English, then in the other languages whose names were found in texts before. Two digits of a year are those
// of the hundred years from `firstOfCentury`; a date of digits alone has the order of `locale` where it is
// written with slashes or dots, and the day first otherwise. Nothing for what is no date.
constexpr int kStoredCentury = 1930; // of texts that a map holds, where the map itself doesn't tell
std::optional<QDate> ParseDate(const QString &text, const QLocale &locale = QLocale(),
                               int firstOfCentury = kStoredCentury);

// The year of which only the last two digits are told.
int YearInCentury(int twoDigits, int firstOfCentury);
// Whether short dates of digits alone have the month before the day.
bool HasMonthFirst(const QLocale &locale);

// Whether a text has no number that can only be a year: more than two digits.
bool HasShortYear(const QString &text);

// Another language whose month names may be met, such as that of a map's file.
void NoteDateLanguage(const QLocale &locale);
// The same for the language in which most of the texts are dates.
void NoteDateLanguageOf(const QStringList &texts);
// Whether a text is a date by the language's own month names, or by digits alone.
bool IsWrittenIn(const QString &text, const QLocale &locale);

// The date in `text` in the pattern, or an empty text for what is no date.
QString Reformatted(const QString &text, const QString &pattern, const QLocale &locale = QLocale());

// The date in `text`; error 13 "Type mismatch" for what is no date.
QDate CDate(const QString &text, const QLocale &locale = QLocale());

// Months from the first of one month to that of the other.
int MonthBoundaries(const QDate &from, const QDate &to);

} // namespace timeline
