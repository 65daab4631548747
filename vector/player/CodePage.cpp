#include "vector/player/CodePage.h"

#include "support/Windows1252.h"

#include <algorithm>

namespace vector {

namespace {

// The five bytes without a meaning.
bool IsHole(char16_t code) { return code >= 0x80 && code < 0xA0; }

int InCodePage(QChar c) {
    const char16_t code = c.unicode();
    if (code < 0x20) return ' ';
    if (IsHole(code)) return -1;
    if (code <= 0xFF) return code;
    const auto &high = support::kWindows1252From80;
    const auto found = std::find(high.begin(), high.end(), code);
    return found == high.end() ? -1 : 0x80 + int(found - high.begin());
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
    const char16_t code = support::FromWindows1252(byte);
    return IsHole(code) ? QChar(QChar::ReplacementCharacter) : QChar(code);
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
