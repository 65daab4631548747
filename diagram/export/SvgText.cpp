#include "diagram/export/SvgText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace diagram {

SvgText &SvgText::Number(double value) {
    constexpr double kMost = 1e12;
    const auto hundredths = std::llround(std::clamp(value, -kMost, kMost) * 100);
    char buffer[32];
    char *end = buffer;
    if (hundredths < 0) *end++ = '-';
    const auto size = hundredths < 0 ? -hundredths : hundredths;
    end = std::to_chars(end, buffer + sizeof buffer, size / 100).ptr;
    const int rest = int(size % 100);
    if (rest) {
        *end++ = '.';
        *end++ = char('0' + rest / 10);
        if (rest % 10) *end++ = char('0' + rest % 10);
    }
    bytes_.append(buffer, std::size_t(end - buffer));
    return *this;
}

SvgText &SvgText::Attribute(std::string_view name, double value) {
    return (*this << " " << name << "=\"").Number(value) << "\"";
}

namespace {

// What XML 1.0 does not allow even when escaped.
bool IsForbidden(char32_t code) {
    // Half a surrogate pair is one of these too.
    return (code < 0x20 && code != '\t' && code != '\n' && code != '\r') ||
           (code >= 0xD800 && code <= 0xDFFF) || code == 0xFFFE || code == 0xFFFF;
}

} // namespace

SvgText &SvgText::Escaped(const QString &text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        char32_t code = text[i].unicode();
        const bool pair = QChar::isHighSurrogate(code) && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (pair) code = QChar::surrogateToUcs4(text[i], text[i + 1]), ++i;
        if (IsForbidden(code)) continue;
        switch (code) {
        case '&':
            bytes_ += "&amp;";
            break;
        case '<':
            bytes_ += "&lt;";
            break;
        case '>':
            bytes_ += "&gt;";
            break;
        case '"':
            bytes_ += "&quot;";
            break;
        default:
            if (code < 0x80)
                bytes_ += char(code);
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

QByteArray SvgColour(QRgb colour) {
    constexpr char kDigits[] = "0123456789abcdef";
    QByteArray text("#000000");
    for (int i = 6; i > 0; --i, colour >>= 4) text[i] = kDigits[colour & 15];
    return text;
}

} // namespace diagram
