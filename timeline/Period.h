// Weeks, months, quarters and years as a person names them.
#pragma once

#include <functional>
#include <optional>
#include <QDate>
#include <QLocale>
#include <QString>
#include <utility>

namespace timeline {

// What a period is seen from.
struct PeriodView {
    QDate today;
    std::optional<std::pair<QDate, QDate>> strip; // first days of its first month and its last
    QLocale locale;
    int firstOfCentury; // of the hundred years that two digits stand for
};

struct Period {
    QDate first, last;
};

// The period in a text that was made Plain: March, March 2027, week 14, w14 2027, Q3, Q3 2026, this week,
// next month, last year. Nothing for any other text, and for a week that the year doesn't have.
std::optional<Period> ReadPeriod(const QString &text, const PeriodView &view);
// The same where the text says of what the end or the beginning is meant: also 2027, and month for this
// month.
std::optional<Period> ReadLimitedPeriod(const QString &text, const PeriodView &view);

// The day of the year that is meant where none is told: the next one to come, but within the years of the
// strip where there is one. `dayIn` gives a null date for a year that has no such day; null where no year
// has.
QDate InBestYear(const PeriodView &view, const std::function<QDate(int year)> &dayIn);

} // namespace timeline
