#include "timeline/DateStep.h"

#include "timeline/DayWords.h"

#include <array>
#include <QCoreApplication>
#include <QRegularExpression>

namespace timeline {

namespace {

using Unit = DateStep::Unit;

struct UnitRow {
    char letter;
    QDate (*moved)(const QDate &from, int count);
    std::array<const char *, 4> words; // one and several, later; one and several, earlier
};

// In the order of DateStep::Unit.
constexpr UnitRow kUnits[] = {
    {'d',
     [](const QDate &from, int count) { return from.addDays(count); },
     {QT_TRANSLATE_NOOP("dates", "one day later"), QT_TRANSLATE_NOOP("dates", "%1 days later"),
      QT_TRANSLATE_NOOP("dates", "one day earlier"), QT_TRANSLATE_NOOP("dates", "%1 days earlier")}},
    {'w',
     [](const QDate &from, int count) { return from.addDays(7LL * count); },
     {QT_TRANSLATE_NOOP("dates", "one week later"), QT_TRANSLATE_NOOP("dates", "%1 weeks later"),
      QT_TRANSLATE_NOOP("dates", "one week earlier"), QT_TRANSLATE_NOOP("dates", "%1 weeks earlier")}},
    {'m',
     [](const QDate &from, int count) { return from.addMonths(count); },
     {QT_TRANSLATE_NOOP("dates", "one month later"), QT_TRANSLATE_NOOP("dates", "%1 months later"),
      QT_TRANSLATE_NOOP("dates", "one month earlier"), QT_TRANSLATE_NOOP("dates", "%1 months earlier")}},
    {'y',
     [](const QDate &from, int count) { return from.addYears(count); },
     {QT_TRANSLATE_NOOP("dates", "one year later"), QT_TRANSLATE_NOOP("dates", "%1 years later"),
      QT_TRANSLATE_NOOP("dates", "one year earlier"), QT_TRANSLATE_NOOP("dates", "%1 years earlier")}},
};

} // namespace

Unit UnitOf(const QString &word) {
    for (std::size_t i = 0; i < std::size(kUnits); ++i)
        if (word.startsWith(QLatin1Char(kUnits[i].letter))) return Unit(i);
    return Unit::Day;
}

std::optional<DateStep> ReadDateStep(const QString &text, const QLocale &locale) {
    static const QRegularExpression form(
        QRegularExpression::anchoredPattern(QStringLiteral("([+-]) ?(\\d{1,4}) ?%1?").arg(kUnitPattern)));
    auto match = form.match(text);
    if (!match.hasMatch()) match = form.match(WithEnglishWords(text, locale));
    if (!match.hasMatch()) return std::nullopt;
    const int count = match.captured(2).toInt();
    return DateStep{match.captured(1) == QLatin1String("-") ? -count : count, UnitOf(match.captured(3))};
}

QDate Moved(const QDate &from, const DateStep &step) {
    return kUnits[std::size_t(step.unit)].moved(from, step.count);
}

QString InWords(const DateStep &step) {
    const int count = std::abs(step.count);
    const auto &words = kUnits[std::size_t(step.unit)].words;
    const QString text =
        QCoreApplication::translate("dates", words[(step.count < 0 ? 2U : 0U) + (count == 1 ? 0U : 1U)]);
    return count == 1 ? text : text.arg(count);
}

} // namespace timeline
