// Dates as a person writes them in a box.
#pragma once

#include <optional>
#include <QDate>
#include <QLocale>
#include <QString>
#include <utility>

namespace diagram {
class Surface;
}

namespace timeline {

// What a date is seen from.
struct DateView {
    QDate today;
    // The first day of the strip's first month and of its last; nothing without a strip.
    std::optional<std::pair<QDate, QDate>> strip{};
};
DateView ViewFrom(const QDate &today, const diagram::Surface &Flow);
struct PeriodView;
// The same for the periods in a text of that language.
PeriodView PeriodsFrom(const DateView &view, const QLocale &locale);

struct DateRead {
    std::optional<QDate> date;
    QString told; // the date in full, or why there is none, for the person who types
};

// Whatever ParseDate reads, where two digits of a year mean the eighty years before today's to the nineteen
// behind it; besides 14 Mar, 5/3 in the order of `locale`, today, tomorrow, Friday, next Friday, +2w, -10d,
// in 3 months, week 14, w14 2027, Q3 2026, next month, end of March. Words are English, months and days of
// the week those of `locale` too. A day or period without a year is the next one to come, or where that lies
// beyond the years of the strip, the one in the nearest of these. A period is its first day; weeks begin on
// Monday and are counted as in ISO 8601.
DateRead ReadDateAsWritten(const QString &text, const DateView &view, const QLocale &locale = QLocale());

// Between which years dates lie, for a person who went beyond them.
QString YearsInWords();

// With the day of the week: Sunday, 14 March 2027.
QString InFull(const QDate &date, const QLocale &locale = QLocale());

} // namespace timeline
