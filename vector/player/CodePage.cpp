#include "vector/player/CodePage.h"

#include <algorithm>
#include <iterator>

namespace vector {

namespace {

// What the code page has at 0x80 to 0x9F.
constexpr ushort kHighHalf[] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

int InCodePage(QChar c) {
    const ushort code = c.unicode();
    if (code < 0x20) return ' ';
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return code;
    const auto found = std::find(std::begin(kHighHalf), std::end(kHighHalf), code);
    return found == std::end(kHighHalf) ? -1 : 0x80 + int(found - std::begin(kHighHalf));
}

int BestInCodePage(QChar c) {
    if (c.isLowSurrogate()) return 0;
    const int exact = InCodePage(c);
    if (exact >= 0) return exact;
    const QString parts = c.isSurrogate() ? QString() : QString(c).normalized(QString::NormalizationForm_KD);
    const int plain = parts.isEmpty() ? -1 : InCodePage(parts[0]);
    return plain >= 0 ? plain : '?';
}

QChar FromCodePage(uchar byte) {
    if (byte < 0x80 || byte >= 0xA0) return QChar(byte);
    const ushort code = kHighHalf[byte - 0x80];
    return code ? QChar(code) : QChar(QChar::ReplacementCharacter);
}

} // namespace

QByteArray ToWindows1252(const QString &text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar c : text) bytes.append(char(BestInCodePage(c)));
    return bytes;
}

bool IsInWindows1252(const QString &text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return InCodePage(c) >= 0; });
}

QString FromWindows1252(QByteArrayView bytes) {
    QString text;
    text.reserve(bytes.size());
    for (const char byte : bytes) text.append(FromCodePage(uchar(byte)));
    return text;
}

} // namespace vector
