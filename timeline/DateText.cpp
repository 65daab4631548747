#include "timeline/DateText.h"

#include "support/Error.h"
#include "timeline/MonthNames.h"

#include <array>
#include <QStringView>

namespace timeline {

namespace {

struct Token {
    const char *pattern; // in capitals
    QString (*text)(const QDate &date, const MonthNames &names, bool withDay);
};

QString Digits(int number, int count) {
    return QString::number(number).rightJustified(count, QLatin1Char('0')).right(count);
}

// The longest first: each place of a pattern is read by the first that fits.
const std::array<Token, 6> kTokens{{
    {"MMMM", [](const QDate &date, const MonthNames &names,
                bool withDay) { return withDay ? names.BesideDay(date.month()) : names.Long(date.month()); }},
    {"YYYY", [](const QDate &date, const MonthNames &, bool) { return Digits(date.year(), 4); }},
    {"MMM", [](const QDate &date, const MonthNames &names, bool) { return names.Short(date.month()); }},
    {"MM", [](const QDate &date, const MonthNames &, bool) { return Digits(date.month(), 2); }},
    {"YY", [](const QDate &date, const MonthNames &, bool) { return Digits(date.year(), 2); }},
    {"DD", [](const QDate &date, const MonthNames &, bool) { return Digits(date.day(), 2); }},
}};

const Token *TokenAt(QStringView pattern) {
    for (const Token &token : kTokens)
        if (pattern.startsWith(QLatin1String(token.pattern), Qt::CaseInsensitive)) return &token;
    return nullptr;
}

} // namespace

QString FormatDate(const QDate &date, const QString &pattern, const QLocale &locale) {
    const MonthNames &names = MonthNamesOf(locale);
    const bool withDay = pattern.contains(QLatin1String("dd"), Qt::CaseInsensitive);
    QString text;
    for (QStringView rest = pattern; !rest.isEmpty();) {
        const Token *token = TokenAt(rest);
        text += token ? token->text(date, names, withDay) : QString(rest.front());
        rest = rest.mid(token ? qsizetype(qstrlen(token->pattern)) : 1);
    }
    return text;
}

bool IsInYears(const QDate &date) {
    return date.isValid() && date.year() >= kFirstYear && date.year() <= kLastYear;
}

int YearInCentury(int twoDigits, int firstOfCentury) {
    const int year = firstOfCentury - firstOfCentury % 100 + twoDigits;
    return year < firstOfCentury ? year + 100 : year;
}

bool HasMonthFirst(const QLocale &locale) {
    const QString format = locale.dateFormat(QLocale::ShortFormat);
    return format.indexOf(QLatin1Char('M')) < format.indexOf(QLatin1Char('d'));
}

bool HasShortYear(const QString &text) {
    int digits = 0;
    for (const QChar sign : text) {
        digits = sign.isDigit() ? digits + 1 : 0;
        if (digits > 2) return false;
    }
    return true;
}

QString Reformatted(const QString &text, const QString &pattern, const QLocale &locale) {
    const std::optional<QDate> date = ParseDate(text, locale);
    return date ? FormatDate(*date, pattern, locale) : QString();
}

QDate CDate(const QString &text, const QLocale &locale) {
    if (const std::optional<QDate> date = ParseDate(text, locale)) return *date;
    support::Raise(support::kErrTypeMismatch, QStringLiteral("CDate"));
}

int MonthBoundaries(const QDate &from, const QDate &to) {
    return (to.year() - from.year()) * 12 + to.month() - from.month();
}

} // namespace timeline
