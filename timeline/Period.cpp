#include "timeline/Period.h"

#include "timeline/DateText.h"
#include "timeline/MonthNames.h"

#include <algorithm>
#include <QRegularExpression>

namespace timeline {

namespace {

constexpr int kLeapCycle = 8; // years after which the 29th of February comes again at the latest
constexpr int kMonthsOfQuarter = 3;

QRegularExpressionMatch Match(const char *pattern, const QString &text) {
    return QRegularExpression(QRegularExpression::anchoredPattern(QLatin1String(pattern))).match(text);
}

Period MonthFrom(const QDate &first) { return {first, first.addMonths(1).addDays(-1)}; }
Period WeekFrom(const QDate &monday) { return {monday, monday.addDays(6)}; }
Period QuarterFrom(const QDate &first) { return {first, first.addMonths(kMonthsOfQuarter).addDays(-1)}; }
Period YearFrom(const QDate &first) { return {first, first.addYears(1).addDays(-1)}; }

QDate MondayOf(const QDate &day) { return day.addDays(1 - day.dayOfWeek()); }

// Null for a week that the year doesn't have. The fourth of January lies in the first one.
QDate MondayOfWeek(int week, int year) {
    const QDate monday = MondayOf(QDate(year, 1, 4)).addDays(7LL * (week - 1));
    int itsYear = 0;
    return monday.weekNumber(&itsYear) == week && itsYear == year ? monday : QDate();
}

// None without digits.
std::optional<int> YearOf(const QString &digits, const PeriodView &view) {
    if (digits.isEmpty()) return std::nullopt;
    const int number = digits.toInt();
    return digits.size() > 2 ? number : YearInCentury(number, view.firstOfCentury);
}

// In that year, else in the best one.
QDate InYear(const std::optional<int> &year, const PeriodView &view, const std::function<QDate(int)> &dayIn) {
    return year ? dayIn(*year) : InBestYear(view, dayIn);
}

std::optional<Period> Made(const QDate &first, Period (*make)(const QDate &)) {
    return first.isValid() ? std::optional(make(first)) : std::nullopt;
}

std::optional<Period> ReadWeek(const QString &text, const PeriodView &view) {
    const auto match = Match("(?:week|wk|kw|w)\\.? ?(\\d{1,2})(?:[ ,/-]+(\\d{4}|\\d{2}))?", text);
    const auto behind = Match("(\\d{4})[ -]?w(\\d{2})", text);
    if (!match.hasMatch() && !behind.hasMatch()) return std::nullopt;
    const int week = (behind.hasMatch() ? behind.captured(2) : match.captured(1)).toInt();
    const QString year = behind.hasMatch() ? behind.captured(1) : match.captured(2);
    return Made(InYear(YearOf(year, view), view, [&](int each) { return MondayOfWeek(week, each); }),
                WeekFrom);
}

std::optional<Period> ReadQuarter(const QString &text, const PeriodView &view) {
    const auto match = Match("q ?([1-4])(?:[ ,/-]+(\\d{4}|\\d{2}))?", text);
    const auto behind = Match("(\\d{4})[ -]?q([1-4])", text);
    if (!match.hasMatch() && !behind.hasMatch()) return std::nullopt;
    const int quarter = (behind.hasMatch() ? behind.captured(2) : match.captured(1)).toInt();
    const QString year = behind.hasMatch() ? behind.captured(1) : match.captured(2);
    const auto firstIn = [&](int each) { return QDate(each, (quarter - 1) * kMonthsOfQuarter + 1, 1); };
    return Made(InYear(YearOf(year, view), view, firstIn), QuarterFrom);
}

std::optional<Period> ReadMonth(const QString &text, const PeriodView &view) {
    for (const QLocale &language : {view.locale, QLocale::c()}) {
        const auto found = MonthNamesOf(language).Find(text);
        if (!found || found->start != 0) continue;
        const auto rest = Match("\\.?(?:[ -](\\d{4}|\\d{2}))?", text.mid(found->length));
        if (!rest.hasMatch()) continue;
        const auto firstIn = [&](int year) { return QDate(year, found->month, 1); };
        return Made(InYear(YearOf(rest.captured(1), view), view, firstIn), MonthFrom);
    }
    return std::nullopt;
}

// this week, next month
std::optional<Period> ReadNear(const QString &text, const PeriodView &view) {
    const auto match = Match("(this|next|last) (week|month|quarter|year)", text);
    if (!match.hasMatch()) return std::nullopt;
    const QString which = match.captured(1), unit = match.captured(2);
    const int step = which == QLatin1String("next") ? 1 : which == QLatin1String("last") ? -1 : 0;
    const QDate today = view.today, month(today.year(), today.month(), 1);
    if (unit == QLatin1String("week")) return WeekFrom(MondayOf(today).addDays(7LL * step));
    if (unit == QLatin1String("month")) return MonthFrom(month.addMonths(step));
    if (unit == QLatin1String("year")) return YearFrom(QDate(today.year() + step, 1, 1));
    const int into = (today.month() - 1) % kMonthsOfQuarter;
    return QuarterFrom(month.addMonths(step * kMonthsOfQuarter - into));
}

} // namespace

std::optional<Period> ReadPeriod(const QString &text, const PeriodView &view) {
    for (const auto reader : {ReadWeek, ReadQuarter, ReadNear, ReadMonth})
        if (const std::optional<Period> period = reader(text, view)) return period;
    return std::nullopt;
}

std::optional<Period> ReadLimitedPeriod(const QString &text, const PeriodView &view) {
    if (Match("\\d{4}", text).hasMatch() && text.toInt() > 0) return YearFrom(QDate(text.toInt(), 1, 1));
    const bool isUnit = Match("week|month|quarter|year", text).hasMatch();
    return ReadPeriod(isUnit ? QStringLiteral("this ") + text : text, view);
}

QDate InBestYear(const PeriodView &view, const std::function<QDate(int year)> &dayIn) {
    QDate coming;
    for (int year = view.today.year(); !coming.isValid() && year <= view.today.year() + kLeapCycle; ++year)
        if (const QDate day = dayIn(year); day.isValid() && day >= view.today) coming = day;
    if (!view.strip || !coming.isValid()) return coming;
    const QDate within =
        dayIn(std::clamp(coming.year(), view.strip->first.year(), view.strip->second.year()));
    return within.isValid() ? within : coming;
}

} // namespace timeline
