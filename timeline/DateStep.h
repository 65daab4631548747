// A step from any date to another, as a person writes it.
#pragma once

#include <optional>
#include <QDate>
#include <QLocale>
#include <QString>

namespace timeline {

struct DateStep {
    enum class Unit : unsigned char { Day, Week, Month, Year };
    int count = 0; // below 0 back
    Unit unit = Unit::Day;
    friend bool operator==(const DateStep &, const DateStep &) = default;
};

// What a word for a unit stands for, by its first letter; days for an empty one.
DateStep::Unit UnitOf(const QString &word);
// Words for units as a part of a pattern, in a group of its own; for texts that were made Plain.
inline const QString kUnitPattern =
    QStringLiteral("(d|days?|w|wks?|weeks?|m|mon|mths?|months?|y|yrs?|years?)");

// +2w, -10d, +3 months, +5 in a text that was made Plain, or with the units of the language: +2 wochen.
// Nothing for any other text.
std::optional<DateStep> ReadDateStep(const QString &text, const QLocale &locale = QLocale());

// A month's last day stands for one that the month doesn't have. May lie beyond the years of dates.
QDate Moved(const QDate &from, const DateStep &step);

// 2 weeks later, one day earlier.
QString InWords(const DateStep &step);

} // namespace timeline
