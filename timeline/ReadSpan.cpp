#include "timeline/ReadSpan.h"

#include "timeline/DateStep.h"
#include "timeline/DateText.h"
#include "timeline/DayWords.h"
#include "timeline/MonthNames.h"
#include "timeline/Period.h"

#include <algorithm>
#include <QCoreApplication>
#include <QRegularExpression>

namespace timeline {

namespace {

QString Tr(const char *text) { return QCoreApplication::translate("dates", text); }

// Where a text may be cut in two, the clearest first; the last may be a part of a single date as well.
constexpr const char *kBetween[] = {" - ", " to ", " until ", " till ", " through ", "-"};
const QString kHyphen = QStringLiteral("-");

bool IsCutClearly(const QString &text) {
    return std::ranges::any_of(kBetween, [&](const char *between) {
        return between != kHyphen && text.count(QLatin1String(between)) == 1;
    });
}

QRegularExpressionMatch Match(const QString &pattern, const QString &text) {
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text);
}

// A text made plain, with one sign for a dash.
QString Simple(const QString &text) {
    QString plain = Plain(text);
    for (QChar &sign : plain)
        if (sign == QChar(0x2012) || sign == QChar(0x2013) || sign == QChar(0x2014) || sign == QChar(0x2212))
            sign = u'-';
    return plain.simplified();
}

class Reader {
public:
    Reader(const DateView &view, const QLocale &locale) : view_(view), locale_(locale) {}

    // 14 mar for 2w; nothing for any other text.
    std::optional<SpanRead> Lasting(const QString &text) const {
        const auto match = Match(QStringLiteral("(.+) for (an?|\\d{1,4}) ?%1").arg(kUnitPattern), text);
        if (!match.hasMatch()) return std::nullopt;
        const DateRead first = ReadDateAsWritten(match.captured(1), view_, locale_);
        if (!first.date) return SpanRead{std::nullopt, first.told};
        const QString count = match.captured(2);
        const DateStep step{count.startsWith(u'a') ? 1 : count.toInt(), UnitOf(match.captured(3))};
        return Told(*first.date, Moved(*first.date, step).addDays(-1));
    }

    // The first cut whose two halves are dates; else why the first one isn't.
    std::optional<SpanRead> FromTo(const QString &text) const {
        std::optional<SpanRead> why;
        for (const char *between : kBetween) {
            const QString cut = QLatin1String(between);
            for (qsizetype at = text.indexOf(cut); at > 0; at = text.indexOf(cut, at + 1)) {
                const auto read = Halves(text.left(at).trimmed(), text.mid(at + cut.size()).trimmed());
                if (read && read->span) return read;
                if (!why && cut != kHyphen) why = read;
            }
        }
        return why;
    }

private:
    static SpanRead Told(const QDate &first, const QDate &last) {
        if (!IsInYears(last)) return {std::nullopt, YearsInWords()};
        if (last < first) return {std::nullopt, Tr("The end lies before the beginning")};
        const Span span{first, last};
        return {span, InFull(span)};
    }

    std::optional<SpanRead> Halves(const QString &from, const QString &to) const {
        if (Match(QStringLiteral("\\d{1,2}(?:st|nd|rd|th|\\.)?"), from).hasMatch()) return DayOnly(from, to);
        const DateRead first = ReadDateAsWritten(from, view_, locale_);
        if (!first.date) return SpanRead{std::nullopt, first.told};
        const DateRead last = Last(to, *first.date);
        return last.date ? Told(*first.date, *last.date) : SpanRead{std::nullopt, last.told};
    }

    // 14 - 20 march
    std::optional<SpanRead> DayOnly(const QString &from, const QString &to) const {
        const DateRead last = ReadDateAsWritten(to, view_, locale_);
        if (!last.date) return std::nullopt;
        const int day = QString(from).remove(QRegularExpression(QStringLiteral("\\D"))).toInt();
        const QDate first(last.date->year(), last.date->month(), day);
        if (!first.isValid()) return SpanRead{std::nullopt, Tr("There is no such day")};
        return Told(first, *last.date);
    }

    // The earliest reading that is not before `first`, seen from that day or from today; a step counts from
    // that day.
    DateRead Last(const QString &text, const QDate &first) const {
        DateRead best = LastSeenFrom({first}, text);
        if (ReadDateStep(text, locale_)) return best;
        for (const DateView &view : {DateView{first, view_.strip}, view_}) {
            const DateRead read = LastSeenFrom(view, text);
            if (!read.date || *read.date < first) continue;
            if (!best.date || *best.date < first || *read.date < *best.date) best = read;
        }
        return best;
    }

    DateRead LastSeenFrom(const DateView &view, const QString &text) const {
        const std::optional<Period> period = ReadPeriod(text, PeriodsFrom(view, locale_));
        if (period && IsInYears(period->last)) return {period->last, InFull(period->last, locale_)};
        return ReadDateAsWritten(text, view, locale_);
    }

    const DateView &view_;
    const QLocale &locale_;
};

SpanRead ReadPlain(QString plain, const DateView &view, const QLocale &locale) {
    if (plain.startsWith(QLatin1String("from "))) plain.remove(0, 5);
    const Reader reader(view, locale);
    if (const auto lasting = reader.Lasting(plain)) return *lasting;
    const std::optional<SpanRead> both = reader.FromTo(plain);
    if (both && both->span && IsCutClearly(plain)) return *both;
    const DateRead day = ReadDateAsWritten(plain, view, locale);
    if (day.date) return {Span{*day.date}, day.told};
    return both.value_or(SpanRead{std::nullopt, day.told});
}

} // namespace

SpanRead ReadSpanAsWritten(const QString &text, const DateView &view, const QLocale &locale) {
    const QString plain = Simple(text), english = WithEnglishWords(plain, locale);
    if (english != plain)
        if (const SpanRead read = ReadPlain(english, view, locale); read.span) return read;
    return ReadPlain(plain, view, locale);
}

} // namespace timeline
