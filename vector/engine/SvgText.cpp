#include "vector/engine/SvgText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace vector {

namespace {

// The digits of a number that is not negative, from `at` on; gives the place behind them.
char *PutDigits(char *at, char *end, long long number) {
    if (number >= 1'000'000) return std::to_chars(at, end, number).ptr;
    char digits[6];
    int count = 0;
    for (auto rest = unsigned(number); count == 0 || rest > 0; rest /= 10)
        digits[count++] = char('0' + rest % 10);
    while (count > 0) *at++ = digits[--count];
    return at;
}

// What XML 1.0 does not allow even when escaped; half a surrogate pair is one of these too.
bool IsForbidden(char32_t code) {
    return (code < 0x20 && code != '\t' && code != '\n' && code != '\r') ||
           (code >= 0xD800 && code <= 0xDFFF) || code == 0xFFFE || code == 0xFFFF;
}

} // namespace

// By resizing, which extends a large block in place where it can, rather than copy it.
void SvgText::Grow(qsizetype size) {
    constexpr qsizetype kLeast = 128;
    bytes_.resize(std::max({kLeast, 2 * bytes_.size(), used_ + size}));
    start_ = bytes_.data();
}

void SvgText::Finish() {
    bytes_.truncate(used_);
    bytes_.squeeze();
    start_ = bytes_.data();
}

SvgText &SvgText::Number(double value) {
    constexpr double kMost = 1e12;
    constexpr qsizetype kLongest = 24;
    const auto hundredths = std::llround(std::clamp(value, -kMost, kMost) * 100);
    char *at = Room(kLongest);
    char *const end = at + kLongest;
    if (hundredths < 0) *at++ = '-';
    const auto size = hundredths < 0 ? -hundredths : hundredths;
    at = PutDigits(at, end, size / 100);
    if (const int rest = int(size % 100)) {
        *at++ = '.';
        *at++ = char('0' + rest / 10);
        if (rest % 10) *at++ = char('0' + rest % 10);
    }
    used_ = at - start_;
    return *this;
}

SvgText &SvgText::Attribute(std::string_view name, double value) {
    return (*this << " " << name << "=\"").Number(value) << "\"";
}

SvgText &SvgText::Escaped(const QString &text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        char32_t code = text[i].unicode();
        const bool pair = QChar::isHighSurrogate(code) && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (pair) code = QChar::surrogateToUcs4(text[i], text[i + 1]), ++i;
        if (IsForbidden(code)) continue;
        switch (code) {
        case '&':
            *this << "&amp;";
            break;
        case '<':
            *this << "&lt;";
            break;
        case '>':
            *this << "&gt;";
            break;
        case '"':
            *this << "&quot;";
            break;
        default:
            if (code < 0x80)
                *Room(1) = char(code), ++used_;
            else
                *this << QString::fromUcs4(&code, 1).toUtf8();
        }
    }
    return *this;
}

SvgText &SvgText::Point(const QPointF &point) { return (Number(point.x()) << " ").Number(point.y()); }

SvgText &SvgText::Path(const QPainterPath &path) {
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        constexpr const char *kCommands[] = {"M", "L", "C", " "};
        (*this << kCommands[int(element.type)]).Point(element);
    }
    return *this;
}

SvgText &SvgText::Colour(QRgb colour) {
    constexpr char kDigits[] = "0123456789abcdef";
    constexpr int kLength = 7;
    char *at = Room(kLength);
    *at = '#';
    for (int i = kLength - 1; i > 0; --i, colour >>= 4) at[i] = kDigits[colour & 15];
    used_ += kLength;
    return *this;
}

} // namespace vector
