#include "storage/text/TextMark.h"

#include <algorithm>
#include <QLocale>
#include <set>

namespace storage {

namespace {

constexpr QStringView kFormulaStarts = u"=+-@\t\r\n";
constexpr QStringView kAmongDigits = u" .,:;/-+()'%$\u20AC\u00A3\u00A5\u00A0\u202F";
constexpr qsizetype kLongestValue = 40;      // characters of a date with its time
constexpr qsizetype kLongestWholeNumber = 9; // digits that every spreadsheet shows as they are
constexpr qsizetype kMonthLetters = 3;       // that tell a month apart

using Words = std::set<QString, std::less<>>;

// The words that a value may hold beside its digits, in lower case.
const Words &ValueWords() {
    static const Words words = [] {
        Words found{QStringLiteral("am"), QStringLiteral("pm"), QStringLiteral("a"), QStringLiteral("p"),
                    QStringLiteral("e"),  QStringLiteral("d"),  QStringLiteral("t"), QStringLiteral("z")};
        for (const QLocale &locale : {QLocale(), QLocale::c()})
            for (int month = 1; month <= 12; ++month)
                for (const auto format : {QLocale::LongFormat, QLocale::ShortFormat})
                    found.insert(locale.monthName(month, format).toLower().remove(u'.'));
        return found;
    }();
    return words;
}

bool IsWordOfValue(QStringView word) {
    const QString lower = word.toString().toLower();
    return ValueWords().contains(lower) ||
           (word.size() == kMonthLetters + 1 && ValueWords().contains(lower.left(kMonthLetters))); // "Sept"
}

bool IsWholeNumber(QStringView text) {
    return !text.isEmpty() && text.size() <= kLongestWholeNumber &&
           std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; }) &&
           (text[0] != u'0' || text.size() == 1);
}

// Digits with what stands among them, and no other words than those of dates and numbers.
bool LooksLikeValue(QStringView text) {
    bool hasDigit = false;
    for (qsizetype at = 0; at < text.size();) {
        qsizetype end = at;
        while (end < text.size() && text[end].isLetter()) ++end;
        if (end > at && !IsWordOfValue(text.mid(at, end - at))) return false;
        if (end == at) {
            hasDigit = hasDigit || text[at].isDigit();
            if (!text[at].isDigit() && !kAmongDigits.contains(text[at])) return false;
            ++end;
        }
        at = end;
    }
    return hasDigit;
}

bool IsTruth(QStringView text) {
    return text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0 ||
           text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0;
}

} // namespace

bool NeedsMark(QStringView text) {
    while (!text.isEmpty() && text[0] == kTextMark) text = text.mid(1);
    if (text.isEmpty()) return false;
    if (kFormulaStarts.contains(text[0])) return true;
    if (text.size() > kLongestValue || IsWholeNumber(text)) return false;
    return IsTruth(text) || LooksLikeValue(text);
}

QString WithMark(const QString &text) { return NeedsMark(text) ? kTextMark + text : text; }

QStringView WithoutMark(QStringView text) {
    const bool marked = !text.isEmpty() && text[0] == kTextMark && NeedsMark(text.mid(1));
    return marked ? text.mid(1) : text;
}

} // namespace storage
