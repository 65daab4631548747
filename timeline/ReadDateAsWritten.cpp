#include "timeline/ReadDateAsWritten.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "timeline/DateStep.h"
#include "timeline/DateText.h"
#include "timeline/DayWords.h"
#include "timeline/MonthNames.h"
#include "timeline/Period.h"
#include "timeline/TimelineNodes.h"

#include <algorithm>
#include <array>
#include <QCoreApplication>
#include <QRegularExpression>

namespace timeline {

namespace {

constexpr int kYearsBack = 80;
constexpr int kMonths = 12;

QString Tr(const char *text) { return QCoreApplication::translate("dates", text); }

// What a reader makes of a text: nothing where it isn't of its form, a null date where there is no such day.
using Reading = std::optional<QDate>;

QRegularExpressionMatch Match(const QString &pattern, const QString &text) {
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text);
}

// +2w, -10d, +5
Reading ReadStep(const QString &text, const PeriodView &view) {
    const std::optional<DateStep> step = ReadDateStep(text, view.locale);
    return step ? Reading(Moved(view.today, *step)) : std::nullopt;
}

// in 3 months, 2 weeks ago, a week from today
Reading ReadDistance(const QString &text, const PeriodView &view) {
    const QString count = QStringLiteral("(an?|\\d{1,4})");
    const auto on =
        Match(QStringLiteral("(?:in )?%1 ?%2(?: from (?:now|today))?").arg(count, kUnitPattern), text);
    const auto back = Match(QStringLiteral("%1 ?%2 ago").arg(count, kUnitPattern), text);
    const auto &match = back.hasMatch() ? back : on;
    const bool isOne = !match.hasMatch() || match.captured(1).startsWith(u'a');
    if (!match.hasMatch()) return std::nullopt;
    if (!back.hasMatch() && !text.startsWith(QLatin1String("in ")) && !text.contains(QLatin1String(" from ")))
        return std::nullopt; // "3 m" alone may mean anything
    const int steps = isOne ? 1 : match.captured(1).toInt();
    return Moved(view.today, {back.hasMatch() ? -steps : steps, UnitOf(match.captured(2))});
}

Reading ReadWord(const QString &text, const PeriodView &view) {
    static constexpr std::pair<const char *, int> kWords[] = {
        {QT_TRANSLATE_NOOP("dates", "today"), 0},
        {QT_TRANSLATE_NOOP("dates", "tomorrow"), 1},
        {QT_TRANSLATE_NOOP("dates", "yesterday"), -1},
        {QT_TRANSLATE_NOOP("dates", "day after tomorrow"), 2},
    };
    for (const auto &[word, days] : kWords)
        if (text == QLatin1String(word) || text == Plain(Tr(word))) return view.today.addDays(days);
    return std::nullopt;
}

// Whether that is a name of the day (1 for Monday), the dot of a short one left out or not.
bool IsNameOf(int day, const QString &name, const QLocale &language) {
    const auto isName = [&](const QString &known) {
        return !known.isEmpty() && (name == Plain(known) || name + u'.' == Plain(known));
    };
    return std::ranges::any_of(std::array{QLocale::LongFormat, QLocale::ShortFormat}, [&](auto format) {
        return isName(language.dayName(day, format)) || isName(language.standaloneDayName(day, format));
    });
}

// From 1 for Monday; 0 for no name of a day.
int DayOfWeek(const QString &name, const QLocale &locale) {
    for (const QLocale &language : {locale, QLocale::c()})
        for (int day = 1; day <= 7; ++day)
            if (IsNameOf(day, name, language)) return day;
    return 0;
}

// Friday and next Friday are the first one after today.
Reading ReadDayOfWeek(const QString &text, const PeriodView &view) {
    const auto match = Match(QStringLiteral("(?:(on|this|next|coming|last) )?(.+)"), text);
    const int day = match.hasMatch() ? DayOfWeek(match.captured(2), view.locale) : 0;
    if (day == 0) return std::nullopt;
    const int on = (day - view.today.dayOfWeek() + 6) % 7 + 1;
    const bool last = match.captured(1) == QLatin1String("last");
    return view.today.addDays(last ? (on == 7 ? -7 : on - 7) : on);
}

Reading ReadPeriodAsDay(const QString &text, const PeriodView &view) {
    const auto edge = Match(
        QStringLiteral("(?:the )?(end|start|beginning|begin|middle|mid)(?: of)?[ -](?:the )?(.+)"), text);
    const std::optional<Period> period =
        edge.hasMatch() ? ReadLimitedPeriod(edge.captured(2), view) : ReadPeriod(text, view);
    if (!period) return std::nullopt;
    if (!edge.hasMatch()) return period->first;
    const QString which = edge.captured(1);
    if (which == QLatin1String("end")) return period->last;
    if (which.startsWith(QLatin1String("mid")))
        return period->first.addDays(period->first.daysTo(period->last) / 2);
    return period->first;
}

// 5/3, 5.3.
Reading ReadDayAndNumber(const QString &text, const PeriodView &view) {
    const auto match = Match(QStringLiteral("(\\d{1,2})[/.] ?(\\d{1,2})[/.]?"), text);
    if (!match.hasMatch()) return std::nullopt;
    const int first = match.captured(1).toInt(), second = match.captured(2).toInt();
    const bool monthFirst = second > kMonths || (first <= kMonths && HasMonthFirst(view.locale));
    const int month = monthFirst ? first : second, day = monthFirst ? second : first;
    if (month < 1 || month > kMonths || day < 1 || day > 31) return std::nullopt; // a month and a year
    return InBestYear(view, [&](int year) { return QDate(year, month, day); });
}

// 14 Mar, 14. March, March 14th; "Mar 14" is a month of 2014.
Reading ReadDayAndMonth(const QString &text, const PeriodView &view) {
    for (const QLocale &language : {view.locale, QLocale::c()}) {
        const auto found = MonthNamesOf(language).Find(text);
        if (!found) continue;
        const QString before = text.left(found->start), behind = text.mid(found->start + found->length);
        const auto inFront = Match(QStringLiteral("(\\d{1,2})(?:st|nd|rd|th)?[. -]*(?:of )?"), before);
        const auto ordinal = Match(QStringLiteral("[. ,-]*(\\d{1,2})(?:st|nd|rd|th)"), behind);
        const bool isOrdinal = before.isEmpty() && ordinal.hasMatch();
        if (!isOrdinal && !(inFront.hasMatch() && Match(QStringLiteral("[. ]*"), behind).hasMatch()))
            continue;
        const int day = (isOrdinal ? ordinal : inFront).captured(1).toInt();
        if (day < 1 || day > 31) continue; // a year
        return InBestYear(view, [&](int year) { return QDate(year, found->month, day); });
    }
    return std::nullopt;
}

// 14th of March 2027 is 14 March 2027.
QString WithoutOrdinals(QString text) {
    static const QRegularExpression ordinal(QStringLiteral("\\b(\\d{1,2})(?:st|nd|rd|th)\\b(?: of)?"));
    return text.replace(ordinal, QStringLiteral("\\1"));
}

Reading ReadWhole(const QString &text, const PeriodView &view) {
    return ParseDate(WithoutOrdinals(text), view.locale, view.firstOfCentury);
}

// The forms, in the order in which they are tried.
constexpr Reading (*kReaders[])(const QString &, const PeriodView &) = {
    ReadStep,        ReadDistance,     ReadWord,        ReadDayOfWeek,
    ReadPeriodAsDay, ReadDayAndNumber, ReadDayAndMonth, ReadWhole};

// A day of a month that doesn't have it looks like a date.
bool LooksLikeADay(const QString &text, const QLocale &locale) {
    const bool named = MonthNamesOf(locale).Find(text) || MonthNamesOf(QLocale::c()).Find(text);
    return (named && text.contains(QRegularExpression(QStringLiteral("\\d")))) ||
           Match(QStringLiteral("\\d{1,4}[-/. ]\\d{1,2}[-/. ]\\d{1,4}"), text).hasMatch();
}

QString Why(const QString &text, const QLocale &locale) {
    if (text.isEmpty()) return Tr("Such as 14 March, next Friday, +2w or end of June");
    if (LooksLikeADay(text, locale)) return Tr("There is no such day");
    return Tr("This is not understood as a date");
}

// Nothing for what none of them reads.
std::optional<DateRead> ReadBy(const QString &plain, const PeriodView &from) {
    for (const auto reader : kReaders) {
        const Reading date = reader(plain, from);
        if (!date) continue;
        if (!date->isValid()) return DateRead{std::nullopt, Tr("There is no such day")};
        if (!IsInYears(*date)) return DateRead{std::nullopt, YearsInWords()};
        return DateRead{*date, InFull(*date, from.locale)};
    }
    return std::nullopt;
}

} // namespace

PeriodView PeriodsFrom(const DateView &view, const QLocale &locale) {
    return {view.today, view.strip, locale, view.today.year() - kYearsBack};
}

DateView ViewFrom(const QDate &today, const diagram::Surface &Flow) {
    DateView view{today};
    for (const diagram::Node *month : LocateTimelineNodes(Flow)) {
        const auto first = ParseDate(document::GetTag(*month, document::tags::kTheDate));
        if (!first) continue;
        if (!view.strip) view.strip.emplace(*first, *first);
        view.strip->first = std::min(view.strip->first, *first);
        view.strip->second = std::max(view.strip->second, *first);
    }
    return view;
}

QString YearsInWords() { return Tr("Dates go from the year %1 to %2").arg(kFirstYear).arg(kLastYear); }

DateRead ReadDateAsWritten(const QString &text, const DateView &view, const QLocale &locale) {
    const QString plain = Plain(text).simplified();
    const PeriodView from = PeriodsFrom(view, locale);
    if (const QString english = WithEnglishWords(plain, locale); english != plain)
        if (const std::optional<DateRead> read = ReadBy(english, from); read && read->date) return *read;
    return ReadBy(plain, from).value_or(DateRead{std::nullopt, Why(plain, locale)});
}

QString InFull(const QDate &date, const QLocale &locale) {
    return locale.toString(date, QLocale::LongFormat);
}

} // namespace timeline
