#include "timeline/MonthNames.h"

#include <algorithm>
#include <map>
#include <QSet>

namespace timeline {

namespace {

constexpr QChar kNoBreakBlank(0xA0), kNarrowNoBreakBlank(0x202F), kNoBreakHyphen(0x2011);
constexpr int kMonths = 12;

QString Unbroken(QString name) {
    name = name.trimmed();
    return name.replace(QLatin1Char(' '), kNoBreakBlank).replace(QLatin1Char('-'), kNoBreakHyphen);
}

// Each month has a name, no two the same.
bool AreWhole(const std::array<QString, kMonths> &names) {
    QSet<QString> seen;
    for (const QString &name : names) {
        const QString plain = Plain(name);
        const bool hasLetter = std::ranges::any_of(plain, [](QChar sign) { return sign.isLetter(); });
        if (!hasLetter || seen.contains(plain)) return false;
        seen.insert(plain);
    }
    return true;
}

template <typename Name>
std::array<QString, kMonths> NamesBy(Name name) {
    std::array<QString, kMonths> names;
    for (int i = 0; i < kMonths; ++i) names[std::size_t(i)] = Unbroken(name(i + 1));
    return names;
}

bool IsPartOfWord(QChar sign) { return sign.isLetterOrNumber() || sign.isMark(); }

bool StandsAlone(const QString &text, qsizetype start, qsizetype length) {
    const bool before = start > 0 && IsPartOfWord(text[start - 1]) && IsPartOfWord(text[start]);
    const qsizetype end = start + length;
    const bool after = end < text.size() && IsPartOfWord(text[end]) && IsPartOfWord(text[end - 1]);
    return !before && !after;
}

} // namespace

QString Plain(const QString &text) {
    QString plain = text.toCaseFolded();
    for (QChar &sign : plain) {
        if (sign.isSpace() || sign == kNoBreakBlank || sign == kNarrowNoBreakBlank) sign = QLatin1Char(' ');
        if (sign == kNoBreakHyphen) sign = QLatin1Char('-');
        if (sign.isDigit()) sign = QChar(u'0' + sign.digitValue());
    }
    return plain;
}

MonthNames::MonthNames(const QLocale &locale) {
    const auto named = [&](const QLocale &of, QLocale::FormatType format) {
        return NamesBy([&](int month) { return of.standaloneMonthName(month, format); });
    };
    long_ = named(locale, QLocale::LongFormat);
    if (!AreWhole(long_)) long_ = named(QLocale::c(), QLocale::LongFormat);
    short_ = named(locale, QLocale::ShortFormat);
    if (!AreWhole(short_)) short_ = long_;
    besideDay_ = NamesBy([&](int month) { return locale.monthName(month, QLocale::LongFormat); });
    if (!AreWhole(besideDay_)) besideDay_ = long_;
    const Twelve shortBesideDay =
        NamesBy([&](int month) { return locale.monthName(month, QLocale::ShortFormat); });
    QSet<QString> seen;
    // The names that are written come first: where another form gives one month the name of a second one, the
    // written one holds.
    for (const Twelve &names : {long_, besideDay_, short_, shortBesideDay}) {
        for (int i = 0; i < kMonths; ++i) {
            const QString plain = Plain(names[std::size_t(i)]);
            if (plain.isEmpty() || seen.contains(plain)) continue;
            seen.insert(plain);
            known_.push_back({plain, i + 1});
        }
    }
    std::ranges::stable_sort(known_, std::greater(), [](const Known &known) { return known.name.size(); });
}

std::optional<MonthNames::Match> MonthNames::Find(const QString &plain) const {
    for (const Known &known : known_) {
        const qsizetype at = plain.indexOf(known.name);
        if (at >= 0 && StandsAlone(plain, at, known.name.size()))
            return Match{known.month, at, known.name.size()};
    }
    return std::nullopt;
}

const MonthNames &MonthNamesOf(const QLocale &locale) {
    static std::map<QString, MonthNames> made;
    const QString name = locale.name();
    const auto found = made.find(name);
    return found != made.end() ? found->second : made.emplace(name, MonthNames(locale)).first->second;
}

} // namespace timeline
