#include "timeline/DateText.h"

#include "timeline/MonthNames.h"

#include <algorithm>
#include <QStringList>
#include <vector>

namespace timeline {

namespace {

constexpr int kMonths = 12;

struct Number {
    int value;
    qsizetype digits;
};

bool IsYear(const Number &number) { return number.digits >= 3; }

int YearOf(const Number &number, int firstOfCentury) {
    return IsYear(number) ? number.value : YearInCentury(number.value, firstOfCentury);
}

std::optional<QDate> DateOf(int year, int month, int day) {
    const QDate date(year, month, day);
    return IsInYears(date) ? std::optional(date) : std::nullopt;
}

// The groups of digits of a text; nothing when it holds anything but digits and what may stand between them.
std::optional<std::vector<Number>> NumbersIn(const QString &text) {
    std::vector<Number> numbers;
    qsizetype digits = 0;
    for (const QChar sign : text) {
        if (!sign.isDigit()) {
            if (!QStringLiteral(" -/.,").contains(sign)) return std::nullopt;
            digits = 0;
            continue;
        }
        if (digits == 4) return std::nullopt;
        if (digits++ == 0) numbers.push_back({0, 0});
        Number &number = numbers.back();
        number = {number.value * 10 + sign.digitValue(), digits};
    }
    return numbers;
}

// Beside a month's name: a year, or day and year with the longer one as the year, else the day first.
std::optional<QDate> WithMonth(int month, const std::vector<Number> &numbers, int century) {
    if (numbers.size() == 1) return DateOf(YearOf(numbers[0], century), month, 1);
    if (numbers.size() != 2) return std::nullopt;
    const bool yearFirst = IsYear(numbers[0]);
    return DateOf(YearOf(numbers[yearFirst ? 0 : 1], century), month, numbers[yearFirst ? 1 : 0].value);
}

bool MonthComesFirst(const QString &text, const QLocale &locale) {
    const bool written = text.contains(QLatin1Char('/')) || text.contains(QLatin1Char('.'));
    return written && HasMonthFirst(locale);
}

std::optional<QDate> OfNumbers(const QString &text, const std::vector<Number> &numbers, const QLocale &locale,
                               int century) {
    if (numbers.size() == 2) {
        const bool yearFirst = IsYear(numbers[0]);
        return DateOf(YearOf(numbers[yearFirst ? 0 : 1], century), numbers[yearFirst ? 1 : 0].value, 1);
    }
    if (numbers.size() != 3) return std::nullopt;
    if (IsYear(numbers[0])) return DateOf(numbers[0].value, numbers[1].value, numbers[2].value);
    const int year = YearOf(numbers[2], century), first = numbers[0].value, second = numbers[1].value;
    const bool monthFirst = second > kMonths || (first <= kMonths && MonthComesFirst(text, locale));
    return monthFirst ? DateOf(year, first, second) : DateOf(year, second, first);
}

std::optional<QDate> InLanguage(const QString &plain, const QLocale &language, int century = kStoredCentury) {
    const auto match = MonthNamesOf(language).Find(plain);
    if (!match) return std::nullopt;
    const QString rest =
        plain.left(match->start) + QLatin1Char(' ') + plain.mid(match->start + match->length);
    const auto numbers = NumbersIn(rest);
    return numbers ? WithMonth(match->month, *numbers, century) : std::nullopt;
}

// Languages in which dates were met, the latest first.
std::vector<QLocale> &Met() {
    static std::vector<QLocale> met;
    return met;
}

const QList<QLocale> &AllLanguages() {
    static const QList<QLocale> all =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    return all;
}

std::optional<QDate> InAnyLanguage(const QString &plain, int century) {
    for (const QLocale &language : std::vector(Met()))
        if (const auto date = InLanguage(plain, language, century)) {
            if (language != Met().front()) NoteDateLanguage(language);
            return date;
        }
    for (const QLocale &language : AllLanguages()) {
        if (const auto date = InLanguage(plain, language, century)) {
            NoteDateLanguage(language);
            return date;
        }
    }
    return std::nullopt;
}

} // namespace

void NoteDateLanguage(const QLocale &locale) {
    std::erase(Met(), locale);
    Met().insert(Met().begin(), locale);
}

void NoteDateLanguageOf(const QStringList &texts) {
    const auto understood = [&](const QLocale &language) {
        return std::ranges::count_if(texts, [&](const QString &text) {
            return InLanguage(Plain(text).trimmed(), language).has_value();
        });
    };
    const auto best = std::ranges::max_element(AllLanguages(), {}, understood);
    if (best != AllLanguages().end() && understood(*best) > 0) NoteDateLanguage(*best);
}

bool IsWrittenIn(const QString &text, const QLocale &locale) {
    const QString plain = Plain(text).trimmed();
    if (const auto numbers = NumbersIn(plain))
        return OfNumbers(plain, *numbers, locale, kStoredCentury).has_value();
    return InLanguage(plain, locale).has_value();
}

std::optional<QDate> ParseDate(const QString &text, const QLocale &locale, int firstOfCentury) {
    const QString plain = Plain(text).trimmed();
    if (std::ranges::none_of(plain, [](QChar sign) { return sign.isDigit(); })) return std::nullopt;
    if (const auto numbers = NumbersIn(plain)) return OfNumbers(plain, *numbers, locale, firstOfCentury);
    if (const auto date = InLanguage(plain, locale, firstOfCentury)) return date;
    if (const auto date = InLanguage(plain, QLocale::c(), firstOfCentury)) return date;
    return InAnyLanguage(plain, firstOfCentury);
}

} // namespace timeline
