// The names of the months in a language, as they are written in dates and as they are recognised in them.
#pragma once

#include <array>
#include <optional>
#include <QLocale>
#include <QString>
#include <vector>

namespace timeline {

class MonthNames {
public:
    explicit MonthNames(const QLocale &locale);

    // Of the month 1 to 12. With no-break blanks and hyphens for those that a name has; where a language
    // has no names of its own, or the same for two months, the long ones stand for the short, and the
    // English for the long.
    const QString &Long(int month) const { return long_[std::size_t(month - 1)]; }
    const QString &Short(int month) const { return short_[std::size_t(month - 1)]; }
    // The long name beside a day, which many languages bend.
    const QString &BesideDay(int month) const { return besideDay_[std::size_t(month - 1)]; }

    struct Match {
        int month;
        qsizetype start, length;
    };
    // The longest name in a text that was made Plain.
    std::optional<Match> Find(const QString &plain) const;

private:
    using Twelve = std::array<QString, 12>;
    struct Known {
        QString name; // plain
        int month;
    };
    Twelve long_, short_, besideDay_;
    std::vector<Known> known_; // the longest first
};

// The names of a language; made once.
const MonthNames &MonthNamesOf(const QLocale &locale);

// A text to compare: plain digits, plain blanks and hyphens, folded case.
QString Plain(const QString &text);

} // namespace timeline
