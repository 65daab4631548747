#include "support/Val.h"

#include "support/Error.h"

#include <cmath>
#include <limits>

namespace support {

namespace {

[[noreturn]] void RaiseOverflow(const char *routine) { Raise(kErrOverflow, QString::fromLatin1(routine)); }

QString WithoutBlanks(const QString &text) {
    QString kept;
    for (const QChar character : text)
        if (character != u' ' && character != u'\t' && character != u'\n') kept.append(character);
    return kept;
}

bool IsDigit(const QString &text, qsizetype at) {
    return at < text.size() && text[at] >= u'0' && text[at] <= u'9';
}

bool IsSign(const QString &text, qsizetype at) {
    return at < text.size() && (text[at] == u'+' || text[at] == u'-');
}

qsizetype SkipDigits(const QString &text, qsizetype at) {
    while (IsDigit(text, at)) ++at;
    return at;
}

// The position behind the longest decimal number at the beginning of `text`; 0 for none.
qsizetype DecimalEnd(const QString &text) {
    qsizetype at = IsSign(text, 0) ? 1 : 0;
    const qsizetype wholeStart = at;
    at = SkipDigits(text, at);
    qsizetype digits = at - wholeStart;
    if (at < text.size() && text[at] == u'.') {
        const qsizetype end = SkipDigits(text, at + 1);
        digits += end - at - 1;
        at = end;
    }
    if (digits == 0) return 0;
    if (at < text.size() && QStringView(u"eEdD").contains(text[at])) {
        const qsizetype first = at + (IsSign(text, at + 1) ? 2 : 1);
        if (IsDigit(text, first)) at = SkipDigits(text, first);
    }
    return at;
}

// Digits to the base 16 or 8 from `at` on, signed in 16 bits when they fit there and in 32 otherwise.
double BasedNumber(const QString &text, qsizetype at, int base) {
    std::uint64_t number = 0;
    for (; at < text.size(); ++at) {
        const int digit = QString(text[at]).toInt(nullptr, 16);
        if ((digit == 0 && text[at] != u'0') || digit >= base) break;
        number = number * static_cast<std::uint64_t>(base) + static_cast<std::uint64_t>(digit);
        if (number > std::numeric_limits<std::uint32_t>::max()) RaiseOverflow("Val");
    }
    if (number <= std::numeric_limits<std::uint16_t>::max())
        return static_cast<std::int16_t>(static_cast<std::uint16_t>(number));
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
}

double DecimalNumber(QString text) {
    text.replace(u'd', u'e').replace(u'D', u'e');
    const double number = text.toDouble();
    if (std::isinf(number)) RaiseOverflow("Val");
    return number;
}

template <typename Integer>
Integer RoundTo(double number, const char *routine) {
    const double rounded = std::nearbyint(number);
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max()))
        RaiseOverflow(routine);
    return static_cast<Integer>(rounded);
}

QString NumberText(double number, int digits) {
    if (number == 0) return QStringLiteral("0");
    return QString::number(number, 'g', digits).toUpper();
}

} // namespace

double Val(const QString &text) {
    const QString number = WithoutBlanks(text);
    if (number.startsWith(QLatin1String("&H"), Qt::CaseInsensitive)) return BasedNumber(number, 2, 16);
    if (number.startsWith(QLatin1String("&O"), Qt::CaseInsensitive)) return BasedNumber(number, 2, 8);
    const qsizetype end = DecimalEnd(number);
    return end == 0 ? 0 : DecimalNumber(number.left(end));
}

bool CBool(const QString &text) {
    const QString word = text.trimmed();
    if (word.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0) return true;
    if (word.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0) return false;
    if (word.isEmpty() || DecimalEnd(word) != word.size()) Raise(kErrTypeMismatch, QStringLiteral("CBool"));
    return DecimalNumber(word) != 0;
}

std::int32_t CLng(double number) { return RoundTo<std::int32_t>(number, "CLng"); }

std::int16_t CInt(double number) { return RoundTo<std::int16_t>(number, "CInt"); }

QString CStr(float number) { return NumberText(static_cast<double>(number), 7); }

QString CStr(double number) { return NumberText(number, 15); }

} // namespace support
